#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "base/Property.h"
#include "cat/CatLink.h"
#include "memory/DigitBox.h"
#include "memory/MemoryCodes.h"
#include "memory/MemoryList.h"
#include "memory/MemoryRecord.h"
#include "platform/Clock.h"

namespace korvex {

/// Edits one channel in a form: every change of a field rebuilds the write command at once. Takes channels out of the
/// list and puts them back, reads a single channel from the radio and writes it.
class MemoryEditor {
public:
    MemoryEditor(CatLink& link, MemoryList& list, Clock& clock);

    /// The form as it opens; one second later it follows the list.
    void Form_Load();

    // --- the form
    Property<int> channelPlace{0};  ///< position in the channel list: channel minus 1
    /// The position of a field in its list of labels; -1 for a code that the list does not have (`codes(field)`).
    const Property<int>& choice(MemoryField field) const { return m_choices.at(field).position; }
    Property<int>& choice(MemoryField field) { return m_choices.at(field).position; }
    const CodeList& codes(MemoryField field) const { return m_choices.at(field).list; }
    DigitBox txt1{frequencyPattern};
    DigitBox txt2{clarifierPattern};
    Property<std::string> remarkText{"Enter Remarks"};  ///< the remark, UTF-8; not part of the command
    Property<std::string> writeCommand;                 ///< the write command, also shown in the panel "MemString"
    /// The boxes were shown anew as a click does it: their whole text is to be selected.
    Signal<> boxesShownAnew;

    // --- what the user does
    void Combo1_Click(int position);
    /// A combo box of the form: Combo2 tone, Combo3 CTCSS mode, Combo4 clarifier direction, Combo5 shift, Combo6 TX and
    /// Combo7 RX clarifier, Combo8 mode.
    void choose(MemoryField field, int position);
    /// The remark was typed or pasted. A character that no list file can keep is refused: the reason comes back, the
    /// remark stays as it was.
    std::optional<std::string> Text1_Change(const std::string& utf8);
    void Command1_Click();       ///< copies the channel into the list
    void cmd2_Click();           ///< writes the channel into the radio and reads it back
    void cmd3_Click();           ///< reads the channel from the radio into the list and the form; waits 5 s for it
    Property<std::string> hint;  ///< why the last of these two did not do what it should; UTF-8
    bool isReading() const { return m_operation && m_operation->running(); }
    Signal<const Outcome&> readingEnded;
    /// A click on a row of the list.
    void chooseRow(int row);

    void composeEditorWriteCommand();
    void loadEditorFromList();
    /// The list has been filled from the radio: the form shows its row, unless the user is just changing the form.
    void followReading();

    const MemoryRecord& fields() const { return m_fields; }

private:
    struct Choice {
        explicit Choice(const CodeList& codes) : list(codes) {}
        const CodeList& list;
        Property<int> position{0};
    };

    int channel() const { return channelPlace + 1; }
    void onFieldChanged();
    void take(MemoryField field, std::string_view code);
    void Timer2_Timer();
    void exchange(const std::string& write);
    Rest takeAnswer(std::string_view answer);
    Rest takeRefusal();
    void giveUp();
    void end(Outcome::Kind how, const std::string& what = {});

    CatLink& m_link;
    MemoryList& m_list;
    MemoryRecord m_fields;
    std::map<MemoryField, Choice> m_choices;
    std::unique_ptr<Timer> m_timer2;
    bool m_followsList = false;
    bool m_loading = false;  // many fields change, one command is composed
    bool m_edited = false;   // by the user, since the form was loaded
    int m_currentRow = 0;    // of the list: where the answer goes
    bool m_wrote = false;    // before it asked: a refusal is the command's
    bool m_writeRefused = false;
    std::string m_cellBefore;  // of the row's channel, which is written when the radio is asked
    std::unique_ptr<Operation> m_operation;
    Connections m_connections;
};

}  // namespace korvex
