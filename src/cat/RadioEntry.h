#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Clock.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// What the entries for the whole radio share: whether they have a line, and what they do from the event loop. A box
/// must not stand in the middle of the end of a transfer.
class RadioEntry {
public:
    /// `title` is that of the boxes; `whyNotNow` tells the owner why there is no line, empty when there is one.
    RadioEntry(OwnersFiles& folders, Clock& clock, std::string title, std::function<std::string()> whyNotNow);

    /// Told in a box when there is none.
    bool hasLine();
    /// A box with the entry's own title.
    MsgAnswer show(MsgBoxRequest request);
    void exclaim(const std::string& text) { m_folders.msgBox().exclamation(text, m_title); }
    bool confirm(const std::string& text) { return m_folders.msgBox().confirm(text, m_title); }

    /// `step` runs soon, from the event loop; in place of one that has not yet.
    void soon(std::function<void()> step);
    /// It runs now, if it has not yet.
    void now();

private:
    OwnersFiles& m_folders;
    std::string m_title;
    std::function<std::string()> m_whyNotNow;
    std::function<void()> m_step;
    std::unique_ptr<Timer> m_timer;
    Connection m_tick;
};

}  // namespace korvex
