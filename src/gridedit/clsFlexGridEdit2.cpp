#include "gridedit/clsFlexGridEdit2.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

std::string clsFlexGridEdit2::typed(const std::string& utf8) const {
    std::string capitals = utf8;
    std::transform(capitals.begin(), capitals.end(), capitals.begin(), asciiUpper);
    return capitals;
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
