#pragma once

#include <string>
#include <vector>

#include "base/Property.h"
#include "memory/MemoryCodes.h"
#include "memory/MemoryList.h"
#include "platform/GridFace.h"

namespace korvex {

/// How the memory list is shown: as codes or readable, all rows or the filled ones, with marks for what is changed,
/// what the radio does not have yet and what it does not tune; and what can be typed into its cells.
class MemoryListFace : public GridFace {
public:
    explicit MemoryListFace(MemoryList& list);

    Property<bool> readable{false};    ///< "14.250.000", "PKT-FM", "233.6" in place of the codes
    Property<bool> onlyFilled{false};  ///< while no row is filled, all are shown
    Property<std::string> summary;     ///< how many rows are filled, changed and so on; UTF-8

    /// Whether a row waits for "Load Memory List in to FT-2000": it would send something that the radio is not known to
    /// have.
    static bool awaitsRadio(const MemoryList& list, int row);

    std::string text(int row, int col) const override;
    std::optional<int> backColour(int row, int col) const override;
    bool isEditable(int row, int col) const override;
    std::vector<std::string> choices(int row, int col) const override;
    std::optional<std::string> whyRefused(int row, int col, const std::string& text) const override;
    void put(int row, int col, const std::string& text) override;

private:
    std::string choiceIn(const CodeList& list, int position) const;
    std::string withoutLabel(int row, int col, const std::string& text) const;
    bool isOutside(int row, int col) const;
    void applyWidths();
    void applyFilter();
    void applyMarks();
    void applyRowMark(int row, bool changed, bool awaits);

    MemoryList& m_list;
    Connections m_connections;
};

}  // namespace korvex
