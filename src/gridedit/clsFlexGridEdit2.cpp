#include "gridedit/clsFlexGridEdit2.h"

#include "base/AsciiText.h"
#include "base/CodePage.h"

namespace korvex {

std::string clsFlexGridEdit2::typed(const std::string& utf8) const {
    return inCapitals(utf8);
}

void clsFlexGridEdit2::textChanged(const std::string& utf8) {
    const std::size_t length = utf8Length(utf8);
    cells().setTextMatrix(cells().Row(), countColumn, length >= fullLength ? "Max." : std::to_string(length));
}

void clsFlexGridEdit2::beforeOpening() {
    m_countBefore = cells().TextMatrix(cells().Row(), countColumn);
}

void clsFlexGridEdit2::afterEscape() {
    cells().setTextMatrix(cells().Row(), countColumn, m_countBefore);
}

}  // namespace korvex
