#pragma once

#include <memory>
#include <string>

#include "cat/CatLink.h"
#include "platform/Clock.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Asks the radio what it is. No answer is an answer, too: the end comes with the first one, or after 600 ms.
class ModelReader {
public:
    ModelReader(CatLink& link, Clock& clock);

    void read();
    /// Sends nothing more and tells no end.
    void stop() { m_timer->setEnabled(false); }
    /// "ID0251;", UTF-8; empty when the radio did not tell.
    const std::string& model() const { return m_model; }

    Signal<const Outcome&> ended;

private:
    Rest takeAnswer();
    void finish(TransferEnd end);

    CatLink& m_link;
    std::unique_ptr<Timer> m_timer;
    std::string m_model;
    Connections m_connections;
};

}  // namespace korvex
