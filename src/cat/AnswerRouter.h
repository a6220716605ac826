#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "cat/ActiveOperation.h"
#include "cat/Expectation.h"
#include "cat/TrafficDisplay.h"

namespace korvex {

/// Cuts what the radio sends behind each ";", shows it as the active operation has it, and gives the pieces to whoever
/// owns them. It knows no consumer.
class AnswerRouter {
public:
    using PieceStep = std::function<Rest(std::string_view piece)>;

    explicit AnswerRouter(TrafficDisplay& received) : m_received(received) {}

    ActiveOperation active() const { return m_active; }
    /// Gives everything that comes from now on to one owner; nothing of what came before.
    void own(ActiveOperation code, PieceStep step);
    /// What is left out of what the owner gets; it is shown all the same.
    void leaveOut(std::function<bool(std::string_view piece)> isNone) { m_isNone = std::move(isNone); }
    /// The owner stays; what comes is shown as `code` has it.
    void showAs(ActiveOperation code) { m_active = code; }
    /// Nobody's any more: shown, and given to nobody.
    void release();

    /// Another program that shares the line: gets each piece first, and says whether it was meant for it alone.
    using FirstLook = std::function<bool(std::string_view piece)>;
    void setFirstLook(FirstLook look) { m_firstLook = std::move(look); }

    /// What has come behind the last ";". Bounded: of an endless stream the last `keptCharacters` at least stay.
    const std::string& pending() const { return m_pending; }
    void dropPending() { m_pending.clear(); }

    /// One read of the port.
    void take(std::string_view wire);

    static constexpr std::size_t keptCharacters = 65'536;  // the longest answer of the radio has 54

private:
    Rest give();
    void accumulate(std::string_view wire);

    TrafficDisplay& m_received;
    ActiveOperation m_active = ActiveOperation::Idle;
    std::string m_pending;
    PieceStep m_owner;
    FirstLook m_firstLook;
    std::function<bool(std::string_view piece)> m_isNone;
};

}  // namespace korvex
