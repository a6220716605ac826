#include "keyer/KeyerWriter.h"

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr int intervalMs = 200;  // of which every second tick works

}  // namespace

void KeyerWriter::write(const KeyerTexts& texts) {
    auto operation = m_link.begin({ActiveOperation::KeyerWrite,
                                   "Writing the keyer memories",
                                   keyerMemories,
                                   {"memory", "memories", true},
                                   "Write KeyerMemory in to FT-2000",
                                   10,
                                   1});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_texts = texts;
    m_written = 0;
    m_operation->expect({"KM", 0, true});
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    if (m_link.pace == Pace::Answered) return converse();
    m_operation->every(intervalMs, m_phase, [this] { writeNext(); });
}

void KeyerWriter::writeNext() {
    const int memory = m_operation->item() + 1;
    if (memory > keyerMemories) {
        m_link.progress().value = 0;
        return m_operation->finish(m_written);
    }
    const WireText& text = keyerText(m_texts, memory);
    const std::string command = keyerWriteCommand(memory, text);
    if (text.empty()) {
        m_operation->send(command);  // which is a question, and changes nothing
    } else {
        m_operation->write(keyerHead(memory), command);
        ++m_written;
    }
    show(command);
}

void KeyerWriter::show(const std::string& command) {
    m_link.sent().append(command);
    m_link.sent().append(crLf);
    m_operation->step(m_operation->item() + 1, m_link.progress().value + 1);
}

void KeyerWriter::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        while (m_operation->item() < keyerMemories) {
            const int memory = m_operation->item() + 1;
            const WireText& text = keyerText(m_texts, memory);
            const std::string command = keyerWriteCommand(memory, text);
            show(command);
            const auto confirms = [command](std::string_view answer) { return answer == command; };
            const Expectation answer = {keyerHead(memory), 0, true};
            if (!text.empty()) {
                return Exchange{keyerHead(memory), keyerReadCommand(memory), answer, command, false, confirms};
            }
        }
        return std::nullopt;
    };
    const auto done = [this](const Outcome& outcome) {
        m_link.progress().value = 0;
        m_operation->end(outcome);
    };
    m_operation->converse({next, [](const Reply&) {}, done});
}

}  // namespace korvex
