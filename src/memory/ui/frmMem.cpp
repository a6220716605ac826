#include "memory/ui/frmMem.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolTip>

#include "memory/ui/DigitEdit.h"
#include "windows/ui/ColorButton.h"
#include "windows/ui/Colors.h"
#include "windows/ui/ConnectPicture.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int yellow = 0x00FFFF;
constexpr int green = 65280;
constexpr int red = 255;

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

template <class T>
T* named(T* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

/// A caption that belongs to a control.
QLabel* caption(const char* name, const QString& text, QWidget* buddy = nullptr) {
    auto* label = named(new QLabel(text), name);
    label->setBuddy(buddy);
    return label;
}

template <class Layout>
Layout* tight(Layout* layout) {
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    return layout;
}

}  // namespace

frmMem::frmMem(MemoryManager& memory, CatLink& link, ToolWindows& windows, SettingsStore& settings)
    : ToolWindow(geometry::memoryEditor, settings),
      m_memory(memory),
      m_editor(memory.editor),
      m_link(link),
      m_windows(windows) {
    setObjectName(QStringLiteral("frmMem"));
    setWindowTitle(QStringLiteral("Memory Channel Handler"));
    makeMenu();
    makeForm();
    makeStatusBar();
    wirePort();
    wireText();
    loadPlace();
    m_editor.Form_Load();
}

QAction* frmMem::entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    // Queued: what opens a box must not keep an assistive program's call waiting until the box is closed.
    connect(action, &QAction::triggered, this, std::move(run), Qt::QueuedConnection);
    return action;
}

void frmMem::makeMenu() {
    QMenu* menu = named(menuBar()->addMenu(QStringLiteral("File")), "mnu_file");
    entry(menu, "mnu_Loadchaninfo", QStringLiteral("Load Memory Channel List"), [this] {
        m_windows.memoryList.show();
        m_editor.composeEditorWriteCommand();
    });
    menu->addSeparator();
    m_radioEntries << entry(menu, "mnu_MemSaveFromFT2000", QStringLiteral("Read Memories of FT-2000"),
                            [this] { m_memory.listReader.mnu_MemSaveFromFT2000_Click(); });
    m_radioEntries << entry(menu, "mnu_MemRestoreTOFT2000", QStringLiteral("Load Memory List in to FT-2000"),
                            [this] { m_memory.listWriter.mnu_MemRestoreTOFT2000_Click(); });
    menu->addSeparator();
    entry(menu, "mnu_Ende", QStringLiteral("Exit"), [this] {
        storePlace();
        m_windows.memoryEditor.hide();
        m_memory.buttonBackToNormal.emit();
    });
}

void frmMem::makeForm() {
    auto* body = new QWidget;
    auto* grid = tight(new QGridLayout(body));
    grid->addWidget(makePortFrame(), 0, 0);
    grid->addWidget(makeRadioFrame(), 0, 1);
    grid->addWidget(makeChannelFrame(), 1, 0, 1, 2);
    grid->addWidget(makeClarifierFrame(), 2, 0, 1, 2);
    grid->addWidget(makeToneFrame(), 3, 0, 1, 2);
    grid->addWidget(makeRemarkFrame(), 4, 0, 1, 2);
    auto* Command1 = named(new QPushButton(QStringLiteral("Copy Memory Channel in to Memory List")), "Command1");
    connect(Command1, &QPushButton::clicked, this, [this] { m_editor.Command1_Click(); });
    grid->addWidget(Command1, 5, 0, 1, 2);
    writeCommand = named(new QLineEdit, "Text2");
    writeCommand->setReadOnly(true);
    writeCommand->setAccessibleName(QStringLiteral("Write command of this channel"));
    grid->addWidget(writeCommand, 6, 0, 1, 2);
    grid->addWidget(makeHint(), 7, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(8, 1);
    setCentralWidget(body);
}

QLabel* frmMem::makeHint() {
    auto* hint =
        new PanelLabel(m_editor.hint, QStringLiteral("Hint"), QStringLiteral("Why nothing was read or copied"));
    hint->setWordWrap(true);
    m_connections += m_editor.hint.bind([hint](const std::string& text) { hint->setVisible(!text.empty()); });
    return hint;
}

QWidget* frmMem::makePortFrame() {
    auto* Frame1 = named(new QGroupBox, "Frame1");
    Frame1->setAccessibleName(QStringLiteral("RS-232 Port"));
    auto* grid = tight(new QGridLayout(Frame1));
    grid->addWidget(caption("Label2", QStringLiteral("RS-232 Port")), 0, 0, Qt::AlignHCenter);
    grid->addWidget(new ConnectPicture(m_link), 1, 0, Qt::AlignHCenter);
    auto* Label3 = new PanelLabel(m_link.indicators().clickLabel, QStringLiteral("Label3"),
                                  QStringLiteral("What a click on the picture does"));
    grid->addWidget(Label3, 2, 0, Qt::AlignHCenter);
    return Frame1;
}

QWidget* frmMem::makeRadioFrame() {
    auto* Frame2 = named(new QGroupBox, "Frame2");
    Frame2->setAccessibleName(QStringLiteral("Channel and radio"));
    auto* grid = tight(new QGridLayout(Frame2));
    cmd3 = named(new ColorButton(QStringLiteral("Read Channel from FT-2000")), "cmd3");
    cmd2 = named(new ColorButton(QStringLiteral("Copy Channel to FT-2000")), "cmd2");
    connect(cmd3, &QPushButton::clicked, this, [this] { m_editor.cmd3_Click(); });
    connect(cmd2, &QPushButton::clicked, this, [this] { m_editor.cmd2_Click(); });
    grid->addWidget(cmd3, 0, 0);
    grid->addWidget(cmd2, 1, 0);
    return Frame2;
}

QWidget* frmMem::makeChannelFrame() {
    auto* frm4 = named(new QGroupBox, "frm4");
    frm4->setAccessibleName(QStringLiteral("Memory channel"));
    auto* grid = tight(new QGridLayout(frm4));
    channelPlace = makeCombo("Combo1", QStringLiteral("Memory channel"));
    for (int channel = 1; channel <= MemoryList::rows; ++channel) channelPlace->addItem(QString::number(channel));
    connect(channelPlace, &QComboBox::currentIndexChanged, this,
            [this](int position) { m_editor.Combo1_Click(position); });
    // Choosing the same channel again takes it from the list anew.
    connect(channelPlace, &QComboBox::activated, this, [this](int position) { m_editor.Combo1_Click(position); });
    m_connections += m_editor.channelPlace.bind([this](int position) {
        const QSignalBlocker quiet(channelPlace);
        channelPlace->setCurrentIndex(position);
    });
    auto* txt1 = makeDigits("txt1", QStringLiteral("Frequency in Hz"), m_editor.txt1);
    auto* Combo8 = makeFieldCombo("Combo8", QStringLiteral("Mode"), MemoryField::Mode);
    auto* Combo5 = makeFieldCombo("Combo5", QStringLiteral("Shift"), MemoryField::Shift);

    grid->addWidget(caption("lbl1", QStringLiteral("Memory Cannel"), channelPlace), 0, 0);
    grid->addWidget(channelPlace, 0, 1);
    grid->addWidget(caption("lbl2", QStringLiteral("Frequency"), txt1), 0, 2);
    grid->addWidget(txt1, 0, 3);
    grid->addWidget(caption("lbl8", QStringLiteral("Hz")), 0, 4);
    grid->addWidget(caption("Label1", QStringLiteral("Mode"), Combo8), 1, 0);
    grid->addWidget(Combo8, 1, 1);
    grid->addWidget(caption("lbl11", QStringLiteral("Shift"), Combo5), 1, 2);
    grid->addWidget(Combo5, 1, 3);
    grid->setHorizontalSpacing(3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frm4;
}

QGroupBox* frmMem::makeClarifierFrame() {
    auto* frm1 = named(new QGroupBox(QStringLiteral("Clarifier")), "frm1");
    auto* row = tight(new QHBoxLayout(frm1));
    auto* txt2 = makeDigits("txt2", QStringLiteral("Clarifier offset in Hz"), m_editor.txt2);
    auto* Combo4 = makeFieldCombo("Combo4", QStringLiteral("Clarifier direction"), MemoryField::ClarifierDirection);
    auto* Combo7 = makeFieldCombo("Combo7", QStringLiteral("Receive clarifier"), MemoryField::RxClarifier);
    auto* Combo6 = makeFieldCombo("Combo6", QStringLiteral("Transmit clarifier"), MemoryField::TxClarifier);
    row->addWidget(caption("lbl5", QStringLiteral("Clarifier Offset"), txt2));
    row->addWidget(Combo4);
    row->addWidget(txt2, 1);
    row->addWidget(caption("lbl10", QStringLiteral("Hz")));
    row->addWidget(caption("lbl7", QStringLiteral("RX"), Combo7));
    row->addWidget(Combo7);
    row->addWidget(caption("lbl6", QStringLiteral("TX"), Combo6));
    row->addWidget(Combo6);
    return frm1;
}

QGroupBox* frmMem::makeToneFrame() {
    auto* frm2 = named(new QGroupBox(QStringLiteral("CTCSS")), "frm2");
    auto* row = tight(new QHBoxLayout(frm2));
    auto* Combo3 = makeFieldCombo("Combo3", QStringLiteral("CTCSS mode"), MemoryField::CtcssMode);
    auto* Combo2 = makeFieldCombo("Combo2", QStringLiteral("CTCSS tone in Hz"), MemoryField::ToneNumber);
    row->addWidget(caption("lbl3", QStringLiteral("Mode"), Combo3));
    row->addWidget(Combo3, 1);
    row->addWidget(caption("lbl4", QStringLiteral("CTCSS Tone (Hz)"), Combo2));
    row->addWidget(Combo2, 1);
    return frm2;
}

QGroupBox* frmMem::makeRemarkFrame() {
    auto* frm3 = named(new QGroupBox(QStringLiteral("Memory Channel Remarks")), "frm3");
    auto* row = tight(new QHBoxLayout(frm3));
    remarkText = named(new QLineEdit, "Text1");
    remarkText->setAccessibleName(QStringLiteral("Remarks"));
    setBackColor(*remarkText, yellow);
    row->addWidget(remarkText);
    return frm3;
}

QComboBox* frmMem::makeCombo(const char* name, const QString& meaning) {
    auto* combo = named(new QComboBox, name);
    combo->setAccessibleName(meaning);
    setBackColor(*combo, yellow);
    return combo;
}

QComboBox* frmMem::makeFieldCombo(const char* name, const QString& meaning, MemoryField field) {
    auto* combo = makeCombo(name, meaning);
    for (const auto label : m_editor.codes(field).labels) combo->addItem(fromUtf8(label));
    connect(combo, &QComboBox::currentIndexChanged, this,
            [this, field](int position) { m_editor.choose(field, position); });
    m_connections += m_editor.choice(field).bind([combo](int position) {
        const QSignalBlocker quiet(combo);
        combo->setCurrentIndex(position);
    });
    return combo;
}

DigitEdit* frmMem::makeDigits(const char* name, const QString& meaning, DigitBox& box) {
    auto* edit = named(new DigitEdit(box), name);
    edit->setAccessibleName(meaning);
    setBackColor(*edit, yellow);
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(fromUtf8(box.text.get())) + 12);
    m_connections += m_editor.boxesShownAnew.connect([edit] { edit->selectAll(); });
    return edit;
}

void frmMem::makeStatusBar() {
    named(statusBar(), "StatusBar1");
    auto* command = new PanelLabel(m_editor.writeCommand, QStringLiteral("MemString"), QStringLiteral("Write command"));
    auto* port = new PanelLabel(m_link.indicators().memoryEditor, QStringLiteral("Port"), QStringLiteral("Port"));
    statusBar()->addWidget(command, 1);
    statusBar()->addWidget(port);
}

void frmMem::wirePort() {
    m_connections += m_link.indicators().open.bind([this](bool open) {
        for (QAction* radioEntry : m_radioEntries) radioEntry->setEnabled(open);
        for (ColorButton* button : {cmd2, cmd3}) button->setBackColor(open ? green : red);
    });
}

void frmMem::wireText() {
    m_connections += m_editor.remarkText.bind([this](const std::string& text) {
        const QSignalBlocker quiet(remarkText);
        if (remarkText->text() != fromUtf8(text)) remarkText->setText(fromUtf8(text));
    });
    connect(remarkText, &QLineEdit::textChanged, this, &frmMem::Text1_Change);
    m_connections +=
        m_editor.writeCommand.bind([this](const std::string& text) { writeCommand->setText(fromUtf8(text)); });
}

void frmMem::Text1_Change() {
    const auto refusal = m_editor.Text1_Change(remarkText->text().toStdString());
    if (!refusal) return;
    const QString kept = fromUtf8(m_editor.remarkText.get());
    const auto caret = remarkText->cursorPosition() - (remarkText->text().size() - kept.size());
    const QSignalBlocker quiet(remarkText);
    remarkText->setText(kept);
    remarkText->setCursorPosition(static_cast<int>(caret));
    QToolTip::showText(remarkText->mapToGlobal(remarkText->rect().bottomLeft()), fromUtf8(*refusal), remarkText);
}

bool frmMem::closeBox() {
    storePlace();
    m_windows.memoryEditor.hide();
    return true;
}

void frmMem::showEvent(QShowEvent* event) {
    ToolWindow::showEvent(event);
    m_link.indicators().memoryEditorVisible = true;
}

void frmMem::hideEvent(QHideEvent* event) {
    ToolWindow::hideEvent(event);
    // Minimizing hides the window's content, not the window.
    m_link.indicators().memoryEditorVisible = isVisible();
}

}  // namespace korvex
