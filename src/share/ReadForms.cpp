#include "share/ReadForms.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/NumberText.h"

namespace korvex {

namespace {

/// The letters of the commands that ask with so many characters behind them.
struct ReadForm {
    std::size_t behind;
    std::string_view letters;  // pairs with a blank behind each
};

constexpr std::array<ReadForm, 4> forms = {{
    {0, "AC AI BI FA FB FR FS FT ID IF KP KR KS LK MC MG MS OI PC PL PR PS RT SD TX VD VG VS VX XT "},
    {1, "AG AN BC CT GT IS KM MD ML NA NB NL NR OS PA RA RF RG RL RM SH SM SQ "},
    {2, "BP CN CO "},
    {3, "EX MR "},
}};

}  // namespace

bool asks(std::string_view wire) {
    if (wire.size() < 3) return false;
    const std::array<char, 3> letters = {asciiUpper(wire[0]), asciiUpper(wire[1]), ' '};
    return std::any_of(forms.begin(), forms.end(), [&](const ReadForm& form) {
        return wire.size() == form.behind + 3 &&
               form.letters.find(std::string_view(letters.data(), letters.size())) != std::string_view::npos;
    });
}

}  // namespace korvex
