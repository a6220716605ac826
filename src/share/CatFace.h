#pragma once

#include <memory>
#include <string>

#include "platform/Doors.h"
#include "share/ForeignText.h"
#include "share/SharedLine.h"

namespace korvex {

/// The radio as a program sees it that opens the shared port: it says commands and gets their answers.
///
/// Two things are kept from the radio, because the program would leave them behind: menu item 029, the CAT time-out,
/// which hamlib sets at each opening and never sets back, is played; and unasked messages (`AI1;`) are switched off
/// again when the program leaves.
class CatFace {
public:
    CatFace(SharedLine& line, std::unique_ptr<Caller> caller);
    CatFace(const CatFace&) = delete;
    CatFace& operator=(const CatFace&) = delete;
    ~CatFace();

private:
    void hear(std::string_view bytes);
    void obey(const std::string& wire);
    void answer(const std::string& wire);
    void pass(const std::string& wire);
    void reply(std::string_view wire);
    void forget();

    SharedLine& m_line;
    std::unique_ptr<Caller> m_caller;
    ForeignText m_cutter;
    std::string m_timeOut;        // what the program has set menu item 029 to: "EX0291;"
    bool m_wantsUnasked = false;  // it has switched AI on
    Connections m_connections;
};

}  // namespace korvex
