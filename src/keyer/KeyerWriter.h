#pragma once

#include <memory>

#include "cat/CatLink.h"
#include "keyer/KeyerTexts.h"

namespace korvex {

/// Writes the five memories, one every 400 ms. The radio answers nothing; what it says meanwhile is dropped. At the
/// answered pace (CatLink) each is asked for right behind its text; an empty text is nothing to send.
///
///     400 ms  KM1CQ CQ DE;   ...   2000 ms  KM5TU 73;   2400 ms  the end
class KeyerWriter {
public:
    explicit KeyerWriter(CatLink& link) : m_link(link) {}

    /// Every text must be sendable (whyNotSendable). `ended` tells the end, at once if the line is not to be had.
    void write(const KeyerTexts& texts);
    bool running() const { return m_operation && m_operation->running() && !m_operation->finished(); }

    Signal<const Outcome&> ended;

private:
    void writeNext();
    void show(const std::string& command);
    void converse();

    CatLink& m_link;
    PhaseFlag m_phase;
    KeyerTexts m_texts;
    int m_written = 0;
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
