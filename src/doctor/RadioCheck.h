#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cat/KnownRadio.h"
#include "doctor/Examination.h"
#include "report/RadioReport.h"

namespace korvex {

/// A look at the radio and what follows from it: the examination, what the machine knows of the line, the beliefs
/// judged, the advice.
class RadioCheck {
public:
    RadioCheck(CatLink& link, std::function<std::string()> timeOfDay);

    /// `ended` tells the end as the examination does.
    void begin(bool withSettings = false);
    void stop() { m_examination.stop(); }
    /// Behind a walk through the band stack: what belongs to it, and all that follows, once more.
    void noteWalk(int registersRead, const std::string& notHome);

    const RadioReport& report() const { return m_report; }
    const Outcome& how() const { return m_how; }
    /// What Korvex heeds of it from now on. Nothing of a check that did not come to its end.
    KnownRadio learned() const;

    Signal<const Outcome&> ended;

private:
    void onEnded(const Outcome& outcome);
    void conclude();
    RadioReport describedMachine() const;

    CatLink& m_link;
    std::function<std::string()> m_timeOfDay;
    Examination m_examination;
    RadioReport m_report;
    Outcome m_how;
    std::string m_begunAt;
    Connection m_examined;
};

}  // namespace korvex
