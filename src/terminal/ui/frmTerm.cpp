#include "terminal/ui/frmTerm.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <functional>

#include "base/CodePage.h"
#include "terminal/ui/TrafficView.h"
#include "terminal/ui/TransmitView.h"
#include "windows/ui/ConnectPicture.h"
#include "windows/ui/ElidedLabel.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

QPalette paneColours(const QColor& text, const QColor& ground) {
    QPalette palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Text, text);
        palette.setColor(group, QPalette::Base, ground);
    }
    return palette;
}

}  // namespace

frmTerm::frmTerm(Terminal& terminal, ToolWindows& windows, SettingsStore& settings, TerminalActions actions)
    : ToolWindow(geometry::terminal, settings),
      m_terminal(terminal),
      m_link(terminal.link()),
      m_actions(std::move(actions)),
      m_portSwitch(new PortSwitch([this] { return m_link.PortOpen(); }, [this] { m_link.togglePort(); }, this)) {
    setObjectName(QStringLiteral("frmTerm"));
    setWindowTitle(QStringLiteral("FT-2000 Menu and Memory Saver"));
    makeFileMenu();
    makePortMenu();
    makeMoreMenu(windows);
    makeToolBar();
    makePanes();
    makeStatusBar();
    followPort();
    loadPlace();
}

bool frmTerm::closeBox() {
    return m_actions.endProgram();
}

QAction* frmTerm::entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    action->setEnabled(static_cast<bool>(run));
    // Queued: what opens a dialog must not keep an assistive program's call waiting until the dialog is closed.
    if (run) connect(action, &QAction::triggered, this, std::move(run), Qt::QueuedConnection);
    return action;
}

QAction* frmTerm::radioEntry(QMenu* menu, const char* name, const QString& caption, const std::function<void()>& run) {
    QAction* action = entry(menu, name, caption, run);
    if (run) m_radioActions.append(action);
    return action;
}

void frmTerm::makeFileMenu() {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&File"));
    menu->setObjectName(QStringLiteral("mnu_File"));
    radioEntry(menu, "mnu_Store", QStringLiteral("Save Menu of  FT-2000"), m_actions.saveMenu)
        ->setShortcut(QKeySequence::Save);
    menu->addSeparator();
    radioEntry(menu, "mnu_Restore", QStringLiteral("&Restore Menu to FT2000"), m_actions.restoreMenu);
    menu->addSeparator();
    radioEntry(menu, "mnu_saveMem", QStringLiteral("Save Memories of  FT-2000"), m_actions.saveMemories);
    menu->addSeparator();
    radioEntry(menu, "mnu_restMem", QStringLiteral("Restore Memories to FT2000"), m_actions.restoreMemories);
    menu->addSeparator();
    entry(menu, "mnu_print", QStringLiteral("Print Saved Files"), [this] { m_terminal.mnu_print_Click(); });
    menu->addSeparator();
    entry(menu, "mnu_exit", QStringLiteral("&Exit"), [this] { m_terminal.mnu_exit_Click(); });
}

void frmTerm::makePortMenu() {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&RS-232 Port"));
    QAction* openPort = menu->addAction(QStringLiteral("Open Comm-Port "));
    openPort->setObjectName(QStringLiteral("mnu_openPort"));
    m_portSwitch->add(openPort);
    menu->addSeparator();
    entry(menu, "mnu_portSettings", QStringLiteral("&RS-232 Port Settings"), m_actions.portSettings);
    menu->addSeparator();
    QAction* fast = entry(menu, "mnu_fastTransfers", QStringLiteral("Fast verified Transfers"),
                          [this] { m_terminal.mnu_fastTransfers_Click(); });
    fast->setCheckable(true);
    m_connections += m_link.pace.bind([fast](Pace pace) { fast->setChecked(pace == Pace::Answered); });
    if (m_actions.addShareEntries) m_actions.addShareEntries(menu);
}

void frmTerm::makeMoreMenu(ToolWindows& windows) {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("More"));
    const auto tool = [&](const char* name, const QString& caption, WindowState& window, void (Terminal::*open)()) {
        QAction* action = entry(menu, name, caption, [this, open] { std::invoke(open, m_terminal); });
        m_connections += window.available.bind([action](bool available) { action->setEnabled(available); });
    };
    tool("mnu_description", QStringLiteral("Menu Description"), windows.menuManager, &Terminal::mnu_description_Click);
    tool("mnu_memory", QStringLiteral("Memory Manager"), windows.memoryEditor, &Terminal::mnu_memory_Click);
    tool("mnu_equalizer", QStringLiteral("Equalizer Settings"), windows.equalizer, &Terminal::mnu_equalizer_Click);
    tool("mnu_bandStack", QStringLiteral("Band Stack Register"), windows.bandStack, &Terminal::mnu_bandStack_Click);
    tool("mnu_keyer", QStringLiteral("CW Keyer Memory"), windows.keyer, &Terminal::mnu_keyer_Click);
    menu->addSeparator();
    entry(menu, "mnu_about", QStringLiteral("About"), m_actions.about);
    menu->addSeparator();
    entry(menu, "mnu_BackupRadio", QStringLiteral("Backup whole Radio..."), m_actions.backupRadio);
    entry(menu, "mnu_RestoreRadio", QStringLiteral("Restore whole Radio..."), m_actions.restoreRadio);
    entry(menu, "mnu_CheckRadio", QStringLiteral("Check Radio..."), m_actions.checkRadio);
}

QAction* frmTerm::toolButton(const char* key, const QString& tip, const char* icon, const std::function<void()>& run) {
    auto* bar = findChild<QToolBar*>(QStringLiteral("tbrToolBar"));
    QAction* action = bar->addAction(QIcon(QLatin1String(":/images/") + QLatin1String(icon)), tip);
    action->setObjectName(QLatin1String(key));
    action->setToolTip(tip);
    if (run) connect(action, &QAction::triggered, this, run, Qt::QueuedConnection);
    QWidget* button = bar->widgetForAction(action);
    button->setObjectName(QLatin1String(key));
    button->setAccessibleName(tip);
    return action;
}

void frmTerm::makeToolBar() {
    auto* bar = new QToolBar(QStringLiteral("Toolbar"), this);
    bar->setObjectName(QStringLiteral("tbrToolBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize({24, 24});
    addToolBar(bar);
    const auto radioButton = [this](const char* key, const QString& tip, const char* icon,
                                    const std::function<void()>& run) {
        QAction* action = toolButton(key, tip, icon, run);
        action->setEnabled(static_cast<bool>(run));
        if (run) m_radioActions.append(action);
    };
    radioButton("OpenLogFile", QStringLiteral("Save Menue of FT-2000"), "save-menu.svg", m_actions.saveMenu);
    radioButton("TransmitTextFile", QStringLiteral("Restore Menue to FT-2000"), "restore-menu.svg",
                m_actions.restoreMenu);
    bar->addSeparator();
    radioButton("Save_Memory", QStringLiteral("Save Memory content of FT-2000"), "save-memory.svg",
                m_actions.saveMemories);
    radioButton("Restore_Memory", QStringLiteral("Restore Memory content to FT-2000"), "restore-memory.svg",
                m_actions.restoreMemories);
    bar->addSeparator();
    m_portSwitch->add(toolButton("openPort", QStringLiteral("Open Com Port"), "port-open.svg", {}), bar);
    toolButton("Properties", QStringLiteral("Com Port Settings"), "port-settings.svg", m_actions.portSettings);
    auto* spacer = new QWidget(bar);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(spacer);
    bar->addWidget(makeConnectFrame());
}

QWidget* frmTerm::makeConnectFrame() {
    auto* frame = new QWidget;
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 4, 0);
    row->addWidget(new PanelLabel(m_link.indicators().clickLabel, QStringLiteral("Label3"),
                                  QStringLiteral("What a click on the picture does"), frame));
    row->addWidget(new ConnectPicture(m_link, frame));
    return frame;
}

void frmTerm::makePanes() {
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);

    auto* received = new TrafficView(m_link.received(), centre);
    received->setObjectName(QStringLiteral("Term2"));
    received->setAccessibleName(QStringLiteral("Received from the radio"));
    received->setReadOnly(true);
    received->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    received->setPalette(paneColours(Qt::white, Qt::blue));
    column->addWidget(received, 1);

    column->addWidget(makeBufferRow());

    auto* sent = new TransmitView(m_terminal, centre);
    sent->setObjectName(QStringLiteral("term3"));
    sent->setAccessibleName(QStringLiteral("Sent to the radio; type commands here"));
    sent->setPalette(paneColours(Qt::black, Qt::yellow));
    sent->setCursorWidth(2);
    sent->setFixedHeight(pixels(900));
    column->addWidget(sent);
    setCentralWidget(centre);
    sent->setFocus();
}

QPushButton* frmTerm::makeClearButton(QWidget* row) {
    auto* clear = new QPushButton(QStringLiteral("clear"), row);
    clear->setObjectName(QStringLiteral("cmd3"));
    clear->setAccessibleName(QStringLiteral("clear"));
    clear->setAccessibleDescription(QStringLiteral("Clears the displays"));
    connect(clear, &QPushButton::clicked, this, [this] { m_terminal.cmd3_Click(); });
    return clear;
}

QLineEdit* frmTerm::makePathBox(QWidget* row) {
    auto* path = new QLineEdit(row);
    path->setObjectName(QStringLiteral("txtPath"));
    path->setAccessibleName(QStringLiteral("Save path"));
    m_connections += m_terminal.files().path.bind([path](const std::string& text) {
        const QString shown = QString::fromStdString(text);
        if (path->text() != shown) path->setText(shown);
        path->setToolTip(shown);
    });
    connect(path, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_terminal.files().path = text.toStdString(); });
    return path;
}

QLabel* frmTerm::makeTypedText(QWidget* row) {
    auto* buffer = new ElidedLabel(row, Qt::ElideLeft);  // the end is what is being typed
    buffer->setObjectName(QStringLiteral("Label1"));
    buffer->setFrameShape(QFrame::StyledPanel);
    buffer->setAccessibleDescription(QStringLiteral("Typed and not yet sent"));
    buffer->setMinimumWidth(0);
    buffer->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_connections += m_terminal.transmitBuffer.bind([buffer](const std::string& wire) {
        const QString text = QString::fromStdString(utf8FromWire(wire));
        buffer->setText(text);
        buffer->setAccessibleName(text.isEmpty() ? QStringLiteral("Transmit Buffer, empty") : QString());
    });
    return buffer;
}

QLineEdit* frmTerm::makeWrittenLine(QWidget* row) {
    auto* line = new QLineEdit(row);
    line->setObjectName(QStringLiteral("Text2"));
    line->setReadOnly(true);
    line->setFocusPolicy(Qt::ClickFocus);
    line->setAccessibleName(QStringLiteral("Line being written"));
    m_connections += m_terminal.link().lineWritten.bind([line](const std::string& text) {
        line->setText(QString::fromStdString(text));
        line->setToolTip(line->text());
        line->setCursorPosition(0);
    });
    return line;
}

QWidget* frmTerm::makeBufferRow() {
    auto* row = new QWidget;
    auto* grid = new QGridLayout(row);
    grid->setContentsMargins(pixels(50), 0, 4, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(2);
    auto* heading = new QLabel(QStringLiteral(" Transmit Buffer"), row);
    heading->setObjectName(QStringLiteral("lblsend"));
    auto* clear = makeClearButton(row);
    auto* pathHeading = new QLabel(QStringLiteral("Path"), row);
    pathHeading->setObjectName(QStringLiteral("Label2"));
    auto* path = makePathBox(row);
    pathHeading->setBuddy(path);

    grid->addWidget(heading, 0, 0);
    grid->addWidget(clear, 0, 1);
    grid->addWidget(pathHeading, 0, 2);
    grid->addWidget(path, 0, 3);
    grid->addWidget(makeTypedText(row), 1, 0, 1, 3);
    grid->addWidget(makeWrittenLine(row), 1, 3);
    grid->setColumnMinimumWidth(0, pixels(1200 - 50) - grid->horizontalSpacing());
    grid->setColumnMinimumWidth(1, pixels(1900 - 1200) - grid->horizontalSpacing());
    grid->setColumnMinimumWidth(2, pixels(2300 - 1900) - grid->horizontalSpacing());
    grid->setColumnStretch(3, 1);
    return row;
}

void frmTerm::makeStatusBar() {
    auto* bar = statusBar();
    bar->setObjectName(QStringLiteral("sbrStatus"));
    // Two rows: at the window's usual width one would cut the texts of the operations off.
    auto* rows = new QWidget(bar);
    auto* column = new QVBoxLayout(rows);
    column->setContentsMargins(2, 0, 0, 0);
    column->setSpacing(1);
    const auto addRow = [&](PanelLabel* left, int leftStretch, PanelLabel* right, int rightStretch) {
        auto* row = new QHBoxLayout;
        row->addWidget(left, leftStretch);
        row->addWidget(right, rightStretch);
        column->addLayout(row);
    };
    const auto panel = [&](Property<std::string>& text, const char* key, const QString& meaning) {
        auto* label = new PanelLabel(text, QLatin1String(key), meaning, rows);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        return label;
    };
    const QString status = QStringLiteral("Status of the Comm - Port");
    const QString settings = QStringLiteral("Settings of the Serial Port");
    const QString time = QStringLiteral("Connect Time");
    auto& panels = m_link.panels();
    PanelLabel* Status = panel(panels.Status, "Status", status);
    Status->setToolTip(status);
    PanelLabel* Settings = panel(panels.Settings, "Settings", settings);
    Settings->setToolTip(settings);
    PanelLabel* Error = panel(panels.Error, "Error", QStringLiteral("Progress of the operation"));
    PanelLabel* ConnectTime = panel(panels.ConnectTime, "ConnectTime", time);
    ConnectTime->setToolTip(time);
    ConnectTime->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    addRow(Status, 2, Settings, 3);
    addRow(Error, 5, ConnectTime, 1);
    bar->addWidget(rows, 1);
}

void frmTerm::followPort() {
    m_connections += m_link.indicators().open.bind([this](bool open) {
        for (QAction* action : m_radioActions) action->setEnabled(open);
        m_portSwitch->showState();
    });
}

}  // namespace korvex
