#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// A memory channel travels in one fixed text form, the memory string:
///
///     MR00714250000+000000200080;              what the radio answers to "MR007;", the memory table and a .mem file
///     keep MW00714250000+000000200080;              what writes the channel into the radio
///     MW00714250000+000000200080;DX window     what a list file (.mef) keeps: a remark behind the write command
///
/// It is cut by position, never by separators. All of it is wire text: one byte is one character. What the codes for
/// mode, tone, shift and the clarifier mean is told by MemoryCodes.h.

namespace korvex {

/// The fields of a channel, in the order in which they stand in the string.
enum class MemoryField {
    Channel,
    Frequency,
    ClarifierDirection,
    ClarifierOffset,
    RxClarifier,
    TxClarifier,
    Mode,
    FixedDigit,
    CtcssMode,
    ToneNumber,
    Shift,
    Remark,
};

inline constexpr std::size_t memoryFieldCount = 12;

/// Where a field stands in a memory string.
struct MemoryFieldPlace {
    MemoryField field;
    int position;  ///< of its first character, counted from 1
    int width;
};

/// The layout of the memory string, said here and nowhere else.
inline constexpr std::array<MemoryFieldPlace, memoryFieldCount - 1> memoryLayout{{
    // 1, 2: the command, "MR" in answers and stored strings, "MW" in write commands and list files
    {MemoryField::Channel, 3, 3},              // "001".."099"
    {MemoryField::Frequency, 6, 8},            // Hz, "14250000"; nothing from 100 MHz on fits
    {MemoryField::ClarifierDirection, 14, 1},  // "+" or "-"
    {MemoryField::ClarifierOffset, 15, 4},     // Hz
    {MemoryField::RxClarifier, 19, 1},         // "0" off, "1" on
    {MemoryField::TxClarifier, 20, 1},         // "0" off, "1" on
    {MemoryField::Mode, 21, 1},                // "1".."9", "A".."C"
    {MemoryField::FixedDigit, 22, 1},          // not looked into: kept as it came, "0" when the editor composes
    {MemoryField::CtcssMode, 23, 1},           // "0".."2"
    {MemoryField::ToneNumber, 24, 2},          // "00".."49"
    {MemoryField::Shift, 26, 1},               // "0".."2"
    // 27, 1: ";"
    // 28 to the end of the line: the remark, which only list files have and the radio never sees
}};

constexpr const MemoryFieldPlace& memoryPlace(MemoryField field) {
    return memoryLayout[static_cast<std::size_t>(field)];
}

/// Text with fewer characters is no memory string (the closing ";" may be missing).
inline constexpr std::size_t shortestMemoryString =
    static_cast<std::size_t>(memoryLayout.back().position + memoryLayout.back().width - 1);

/// Characters of a complete memory string without a remark.
inline constexpr std::size_t memoryStringLength = shortestMemoryString + 1;

/// One channel, every field as text just as it was cut from the string: nothing is turned into a number on the way
/// through. An empty frequency means an empty slot.
class MemoryRecord {
public:
    std::string& operator[](MemoryField field) { return m_fields[static_cast<std::size_t>(field)]; }
    const std::string& operator[](MemoryField field) const { return m_fields[static_cast<std::size_t>(field)]; }

    bool operator==(const MemoryRecord&) const = default;

private:
    std::array<std::string, memoryFieldCount> m_fields;
};

/// Whether a text can stand in a field's place in a memory string (not the remark): of its width, digits where the
/// radio counts, and no character that the radio does not use. A code that no list knows can.
bool canStandIn(MemoryField field, std::string_view text);

/// Whether a text has the shape of a memory string, read ("MR") or to be written ("MW"): what stands in every field's
/// place can stand there, and then comes ";" or nothing at all. Whatever follows is a remark.
bool hasMemoryShape(std::string_view text);

/// The text of one field (not the remark) in a memory string; shorter or empty where the string ends early.
std::string_view memoryFieldIn(std::string_view memoryString, MemoryField field);

/// The record in a memory string; nothing for text that is too short to be one. What follows position 27 is the remark.
std::optional<MemoryRecord> parseMemoryString(std::string_view memoryString);

/// A channel number as the memory string has it: "007".
std::string channelText(int channel);

/// "MR007;"
std::string memoryReadCommand(int channel);

/// The answer to a read of a memory within what has been received up to a ";": line noise in front of it is dropped.
/// Nothing for what is none, such as what the dial tells unasked: neither "MR" nor an error answer.
std::optional<std::string> memoryAnswerIn(std::string_view received);

/// The radio's answer to the read of a channel without data.
bool isErrorAnswer(std::string_view answer);

/// The memory string to keep for a read command ("MR007;") and the radio's answer to it. It carries the channel that
/// was asked for, whatever the answer says. Nothing for the error answer and for one that is too short to hold anything
/// behind a channel number.
std::optional<std::string> storedMemoryString(std::string_view readCommand, std::string_view answer);

/// Whether a stored string is a whole memory string as the radio tells it, and nothing else: it can be sent back.
bool isUndamaged(std::string_view storedString);

/// The command that restores a stored string: the same text with "MW" for "MR", no field encoded anew.
std::string memoryWriteCommand(std::string_view storedString);

/// The write command from the fields as they stand; the remark is left out, the radio has no place for it.
std::string memoryWriteCommand(const MemoryRecord& record);

/// A line of a list file, without its line end: the write command with the remark behind it.
std::string memoryListLine(const MemoryRecord& record);

}  // namespace korvex
