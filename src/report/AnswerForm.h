#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// The form of an answer: how it is made, and nothing of what it tells. Behind the characters of its question stand
/// `n` for a digit or the code of a mode, `+` for a sign, `x` for another character. What a keyer text (KM) holds is
/// one `*`, and so is what stands for more than 60 characters; of a text that ends in "}" the brace is kept.
///
///     EX126; -> EX126-05;                     EX126+nn;
///     KM1;   -> KM1CQ CQ DE DL1ABC;           KM1*;
///     MR001; -> MR00114074000+000000200000;   MR001nnnnnnnn+nnnnnnnnnnnn;
///     EX150; -> ?;                            ?;
///
/// Both are wire text. An answer that does not begin as its question has its two letters kept.
std::string formOf(std::string_view query, std::string_view answer);

/// An answer of that form: zeros for digits, `+` for signs, `A` for other characters, "TEXT" for a text.
std::string answerOf(std::string_view form);

}  // namespace korvex
