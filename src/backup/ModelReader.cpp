#include "backup/ModelReader.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int testStepMs = 20;
constexpr int patienceMs = 600;  // a slow radio answers within half a second

}  // namespace

void ModelReader::read() {
    auto operation = m_link.begin({ActiveOperation::MenuReadToFile, "Reading the radio's model"});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_model.clear();
    m_operation->expect({"ID", sizeof("ID0;") - 1});  // what is shorter is an adapter's echo
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    m_operation->after(testStepMs, [this] { ask(); });
}

void ModelReader::ask() {
    if (m_link.testing()) return m_operation->after(testStepMs, [this] { ask(); });
    m_link.clearTraffic();
    m_operation->onAnswer([this](std::string_view answer) {
        if (answer.starts_with("ID")) m_model = utf8FromWire(answer);
        m_operation->end({});
        return Rest::Discard;
    });
    m_operation->after(patienceMs, [this] { m_operation->end({}); });
    m_operation->send("ID;");
}

}  // namespace korvex
