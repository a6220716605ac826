#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cat/Exchange.h"

namespace korvex {

/// What a radio has answered before, for conversations that go on where an earlier one was cut off.
struct Recollection {
    /// The answer, or "?;" for a refusal; nothing for what has to be asked.
    std::function<std::optional<std::string>(const Exchange& exchange)> known;
    /// An answer that has come now. A refusal is not told: a busy radio refuses, too.
    std::function<void(const Exchange& exchange, const std::string& answer)> heard;
};

/// The same conversation, in which nothing is asked that is known.
Conversation recollecting(Conversation conversation, Recollection recollection);

}  // namespace korvex
