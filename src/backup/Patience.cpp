#include "backup/Patience.h"

#include <string_view>

#include "cat/CatLink.h"

namespace korvex {

namespace {

constexpr int silenceMs = 5'000;
constexpr int standstillMs = 30'000;

}  // namespace

Patience::Patience(CatLink& link, Clock& clock, const std::function<void()>& lost)
    : m_silence(clock.makeTimer()), m_standstill(clock.makeTimer()) {
    m_silence->setInterval(silenceMs);
    m_standstill->setInterval(standstillMs);
    for (auto* watch : {m_silence.get(), m_standstill.get()}) {
        m_connections += watch->tick.connect([this, lost] {
            end();
            lost();
        });
    }
    m_connections += link.came.connect([this](std::string_view wire) {
        if (wire.find(';') != std::string_view::npos) startAnew(*m_silence);
    });
    m_connections += link.progress().value.changed.connect([this](int) {
        startAnew(*m_standstill);
        if (m_what == Of::Writing) startAnew(*m_silence);
    });
}

void Patience::begin(Of what) {
    end();
    m_what = what;
    m_silence->setEnabled(true);
    m_standstill->setEnabled(true);
}

void Patience::end() {
    m_silence->setEnabled(false);
    m_standstill->setEnabled(false);
}

void Patience::startAnew(Timer& watch) const {
    if (!watch.Enabled()) return;
    watch.setEnabled(false);
    watch.setEnabled(true);
}

}  // namespace korvex
