#pragma once

#include <optional>
#include <string>
#include <vector>

#include "backup/FileKind.h"
#include "cat/KnownRadio.h"
#include "cat/Outcome.h"

namespace korvex {

/// What has become of an item of a restore.
struct RestoredItem {
    enum class Became { Written, Unchanged, Refused, Different, LeftAlone };
    const FileKind* kind;
    std::string name;
    Became became;
    std::string wanted;                ///< wire text; empty where the file says nothing of it
    std::optional<std::string> found;  ///< wire text; nothing where the radio has nothing
    std::string why = {};              ///< it was left alone, UTF-8
    bool isAsTheFileSays = true;
};

/// One file of a restore beside what the radio has.
class RestorePart {
public:
    /// What the radio that was saved had refused to tell is left out.
    RestorePart(const FileKind& fileKind, DataItems items);

    const FileKind* kind;
    DataItems wanted;                    ///< in the order in which it is sent
    DataItems lineItems;                 ///< the same of what may cut the line
    std::optional<DataItems> present;    ///< what the radio has, as far as it tells
    DataItems toWrite;                   ///< of `wanted`
    DataItems lineItemsToWrite;          ///< of `lineItems`
    std::vector<std::string> refused{};  ///< names of items, by the writing
    bool isConfirmed = false;            ///< the writing has seen everything in the radio

    /// What a check of the radio has shown: where its CAT settings are, and what it refuses. Before the plan.
    void heed(const KnownRadio& radio);
    /// Chooses what is to be written: what differs from the radio, else all.
    void plan(bool all, bool withLineItems);
    /// "3 of 146 items differ: 020, 042, 126".
    std::string planLine() const;
    /// "menu 042: the radio has "2", the file "1"", of what is to be written.
    std::vector<std::string> planDetails(const ItemTitles& titles) const;
    /// Names of items whose value is wider or narrower than the radio's own.
    std::vector<std::string> otherWidths() const;
    /// The file's menu has the numbers of other firmware than the radio, as far as is known. What the radio tells says
    /// more: it is asked about widths instead.
    bool hasOtherNumbers() const;
    /// A walk through the band stack leaves each band two registers on, so a band stack that was confirmed as it was
    /// written is not read back; everything else is.
    void noteWritten(const Outcome& outcome, bool wasVerified);
    void report(std::vector<RestoredItem>& report) const;

private:
    DataItems presentLike(const DataItems& items) const;
    DataItems differing(const DataItems& items) const;
    bool isKnownToBeRefused(const DataItem& item) const;
    RestoredItem told(const DataItem& item, const DataItem* found) const;
    RestoredItem toldOfLine(const DataItem& item, const DataItem* found) const;

    KnownRadio m_radio;
};

}  // namespace korvex
