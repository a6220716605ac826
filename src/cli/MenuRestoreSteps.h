#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/Job.h"

namespace korvex::cli {

inline constexpr const char* catSettingsLeft =
    "the CAT settings (menu items 028 to 030) were left as they are; --with-cat writes them too";

/// What of a menu file goes into the radio, and how: the radio's own CAT settings are left out, or come last of all, so
/// that no item can cut the line that the others need. What the saved radio refused to tell is left out, too.
class MenuRestoreSteps {
public:
    void take(const DataItems& items);

    /// Why it is not restored without "--force"; empty when the menu is whole.
    std::string whyIncomplete() const;

    /// All that leaves the CAT settings alone.
    const DataItems& items() const { return m_items; }
    const DataItems& catItems() const { return m_catItems; }

    Step itemsStep(Program& program) const;
    /// Time-out and RTS, then the speed: the radio hears nothing more behind that.
    Step catStep(Program& program) const;

private:
    DataItems m_items;
    DataItems m_catItems;
    std::size_t m_named = 0;  // items that the file tells of, told or refused
};

}  // namespace korvex::cli
