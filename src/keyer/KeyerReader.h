#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cat/CatLink.h"
#include "keyer/KeyerTexts.h"

namespace korvex {

/// Reads the five memories: one query every 400 ms, whether or not the answer to the one before has come. An answer
/// belongs to the memory that was asked for last, unless it names one that was asked for before and still owes one.
///
///     400 ms  KM1;   800 ms  KM2;   ...   2000 ms  KM5;   2400 ms  the end
///
/// At the answered pace (CatLink) each query leaves when the answer to the one before has come.
///
/// A radio that answers, but late, is waited for at the end, up to 1200 ms without an answer.
class KeyerReader {
public:
    explicit KeyerReader(CatLink& link) : m_link(link) {}

    /// `ended` tells the end, at once if the line is not to be had.
    void read();
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }
    bool running() const { return m_operation && m_operation->running(); }

    /// As far as they have come.
    const KeyerTexts& texts() const { return m_texts; }
    /// How many memories have been answered since the read began.
    int answered() const { return count(Told::Memory); }
    /// How many the radio has refused to tell, and whether it was this one.
    int refused() const { return count(Told::Refused); }
    bool wasRefused(int memory) const { return toldOf(memory) == Told::Refused; }

    Signal<> began;    ///< the line is ours, and no text has come
    Signal<int> told;  ///< the text of this memory, 1 to 5, has come
    Signal<const Outcome&> ended;

private:
    /// What has come for a memory: nothing yet, something that names another or none, a refusal, or what was asked for.
    enum class Told { Nothing, Else, Refused, Memory };

    void queryNext();
    bool waitsForRest();
    void converse();
    Rest takeKeyerAnswer(std::string_view answer);
    Rest takeStrange(std::string_view piece);
    void store(int memory, std::string_view answer, Told what);
    int ownerOf(std::string_view answer) const;
    std::vector<std::string> refusedNames() const;
    Told& toldOf(int memory) { return m_told.at(static_cast<std::size_t>(memory - 1)); }
    Told toldOf(int memory) const { return m_told.at(static_cast<std::size_t>(memory - 1)); }
    int count(Told what) const;
    void finish();

    CatLink& m_link;
    PhaseFlag m_phase;
    KeyerTexts m_texts;
    std::array<Told, keyerMemories> m_told{};
    int m_asked = 0;        // the memory that was asked for last; 0 before the first
    int m_silentSteps = 0;  // of 400 ms, after the last query
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
