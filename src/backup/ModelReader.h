#pragma once

#include <memory>
#include <string>

#include "cat/CatLink.h"

namespace korvex {

/// Asks the radio what it is, behind the communication test. No answer is an answer, too: the end comes with the first
/// one, or after 600 ms.
class ModelReader {
public:
    explicit ModelReader(CatLink& link) : m_link(link) {}

    /// `ended` tells the end, at once if the line is not to be had.
    void read();
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }
    /// "ID0251;", UTF-8; empty when the radio did not tell.
    const std::string& model() const { return m_model; }

    Signal<const Outcome&> ended;

private:
    void ask();

    CatLink& m_link;
    std::string m_model;
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
