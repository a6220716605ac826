#pragma once

#include <string>

#include "gridedit/FlexGridEditor.h"

namespace korvex {

/// The editor of the keyer memories: every cell can be edited, typed letters become capitals, and the row's count
/// column follows the length of the text.
class clsFlexGridEdit2 : public FlexGridEditor {
public:
    static constexpr int countColumn = 2;
    /// The radio's memories end here: the count reads "Max." from this length on.
    static constexpr std::size_t fullLength = 50;

protected:
    std::string typed(const std::string& utf8) const override;
    void textChanged(const std::string& utf8) override;
    void beforeOpening() override;
    /// The text is as it was, so is its count.
    void afterEscape() override;

private:
    std::string m_countBefore;
};

}  // namespace korvex
