#include "cat/Recollection.h"

#include <memory>
#include <utility>

namespace korvex {

Conversation recollecting(Conversation conversation, Recollection recollection) {
    using Kind = Reply::Kind;
    const auto asked = std::make_shared<Exchange>();
    const auto told = [inner = conversation.told, heard = std::move(recollection.heard), asked](const Reply& reply) {
        if (reply.kind == Kind::Answer) heard(*asked, reply.answer);
        inner(reply);
    };
    const auto next = [inner = conversation, known = std::move(recollection.known),
                       asked]() -> std::optional<Exchange> {
        for (auto exchange = inner.next(); exchange; exchange = inner.next()) {
            const auto answer = known(*exchange);
            if (!answer) return *asked = std::move(*exchange);
            inner.told({*answer == "?;" ? Kind::Refused : Kind::Answer, *answer});
        }
        return std::nullopt;
    };
    return {next, told, std::move(conversation.done)};
}

}  // namespace korvex
