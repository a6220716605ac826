#include "menu/ui/frmDescription.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

#include "cat/CatLink.h"
#include "menu/MenuManager.h"
#include "menu/ui/MenuFilterBar.h"
#include "menu/ui/TableMenu.h"
#include "menu/ui/frmTitle.h"
#include "windows/ui/Colors.h"
#include "windows/ui/ElidedLabel.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int yellow = 0x00FFFF;

constexpr auto gestures =
    "Right click or menu key: select a column (yellow) · Double click, Enter or typing: edit · Del: empty · S: send "
    "item "
    "· R: read item · Ctrl+Z: undo";

QString fromUtf8(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

frmDescription::frmDescription(MenuManager& logic, CatLink& link, SettingsStore& settings,
                               std::function<bool()> endProgram)
    : ToolWindow(geometry::menuManager, settings),
      m_logic(logic),
      m_endProgram(std::move(endProgram)),
      grid(new FlexGridView(logic.grid)),
      notice(new QLabel),
      m_title(std::make_unique<frmTitle>(logic, this)) {
    setObjectName(QStringLiteral("frmDescription"));
    makeMenus(link);
    makeGrid();
    makeBody();
    makeStatusBar(link);
    wire();
    loadPlace();
    if (isNew()) growToGrid();
    m_logic.Form_Load();
}

frmDescription::~frmDescription() = default;

QAction* frmDescription::entry(QMenu* menu, const char* name, const char* caption, void (MenuManager::*run)()) {
    QAction* action = menu->addAction(QLatin1String(caption));
    action->setObjectName(QLatin1String(name));
    const auto act = [this, run] {
        writeBack();
        std::invoke(run, m_logic);  // g++ 12's sanitizer misreads "m_logic.*run" in here
    };
    connect(action, &QAction::triggered, this, act, Qt::QueuedConnection);
    return action;
}

void frmDescription::makeMenus(CatLink& link) {
    QMenu* file = menuBar()->addMenu(QStringLiteral("File"));
    file->setObjectName(QStringLiteral("mnu_File"));
    entry(file, "mnu_loadFlexgrid", "Load Settings from File", &MenuManager::mnu_loadFlexgrid_Click);
    entry(file, "Flexgrid_toGrid", "Save Settings in File", &MenuManager::Flexgrid_toGrid_Click);
    QAction* read =
        entry(file, "mnu_readSettings", "Read Menu Settings of FT-2000", &MenuManager::mnu_readSettings_Click);
    QAction* restore = entry(file, "mnuRestore", "Restore Menu Settings to FT-2000", &MenuManager::mnuRestore_Click);
    entry(file, "mnu_exit", "Exit program", &MenuManager::mnu_exit_Click);
    QMenu* table = menuBar()->addMenu(QStringLiteral("Table"));
    table->setObjectName(QStringLiteral("mnu_Tabel"));
    entry(table, "mnu_editTitle", "Edit Title", &MenuManager::mnu_editTitle_Click);
    new TableMenu(*table, m_logic, link, [this] { writeBack(); });  // the menu's
    m_connections += link.indicators().open.bind([read, restore](bool open) {
        read->setEnabled(open);
        restore->setEnabled(open);
    });
}

void frmDescription::makeGrid() {
    grid->setObjectName(QStringLiteral("FlexGrid1"));
    grid->setAccessibleName(QStringLiteral("Menu items"));
    grid->setAccessibleDescription(
        QStringLiteral("The right mouse button or the menu key selects a settings column; S sends an item to the radio "
                       "and R reads it"));
    m_editable = std::make_unique<QtEditableGrid>(*grid);
}

void frmDescription::makeBody() {
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(grid, 1);
    column->addWidget(new MenuFilterBar(m_logic, [this] { writeBack(); }));
    auto* hint = new ElidedLabel;
    hint->setText(QString::fromUtf8(gestures));
    hint->setObjectName(QStringLiteral("gestures"));
    hint->setAccessibleDescription(QStringLiteral("What can be done in the grid"));
    hint->setContentsMargins(4, 0, 4, 2);
    column->addWidget(hint);
    notice->setObjectName(QStringLiteral("Label1"));
    notice->setAccessibleDescription(QStringLiteral("Whether there are settings to be saved"));
    notice->setTextFormat(Qt::PlainText);
    notice->setAutoFillBackground(true);
    // A long text must not hold the window wide open.
    notice->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    column->addWidget(notice);
    setCentralWidget(body);
}

/// A window that nobody has placed yet shows all columns, as far as the screen is wide.
void frmDescription::growToGrid() {
    constexpr int borders = 4;
    constexpr int highest = 640;
    constexpr int titleBar = 60;
    growTo(pixels(MenuManager::tableWidth()) + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this) +
           borders);
    const int below = screen()->availableGeometry().bottom() - titleBar - y();
    resize(width(), std::max(height(), std::min(highest, below)));
}

void frmDescription::addField(Property<std::string>& text, const char* name, const char* word, const char* meaning) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QLatin1String(name));
    edit->setAccessibleName(QLatin1String(meaning));
    edit->setToolTip(QLatin1String(meaning));
    edit->setPlaceholderText(QLatin1String(word));
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("EX000-0000;  ")));
    edit->setReadOnly(true);
    m_connections += text.bind([edit](const std::string& value) { edit->setText(fromUtf8(value)); });
    statusBar()->addPermanentWidget(edit);
}

void frmDescription::makeStatusBar(CatLink& link) {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->addWidget(new PanelLabel(link.indicators().menuManager, QStringLiteral("portstatus"),
                                          QStringLiteral("State of the serial port"), this));
    ItemExchange& exchange = m_logic.exchange();
    addField(exchange.commandSent, "Text1", "Command", "Command of the last single item");
    addField(exchange.valueAnswered, "Text2", "Answer", "Value that the radio answered");
    addField(exchange.valueCompared, "Text7", "Before", "Value that the answer is compared with");
}

void frmDescription::wire() {
    connect(grid, &FlexGridView::cellPressed, this, [this](int, int col, Qt::MouseButton button) {
        if (button == Qt::LeftButton) bindEditor();
        if (button == Qt::RightButton) m_logic.FlexGrid1_RightClick(col);
    });
    connect(grid, &FlexGridView::keyDown, this, &frmDescription::onKey);
    m_connections += m_logic.exchange().releaseEditor.connect([this] {
        writeBack();  // what was being typed into another cell is not lost
        m_editor.reset();
    });
    m_connections +=
        m_logic.showTitleDialog.connect([this](const std::string& title) { m_title->ask(fromUtf8(title)); });
    m_connections += m_logic.notice.bind([this](const std::string& text) { showNamed(*notice, text); });
    m_connections += m_logic.noticeWarns.bind([this](bool isYellow) {
        notice->setPalette(QPalette());
        if (isYellow) setBackColor(*notice, yellow);
    });
    m_connections += m_logic.modified.bind([this](bool modified) {
        setWindowTitle(modified ? QStringLiteral("Menu Manager - not saved") : QStringLiteral("Menu Manager"));
    });
    m_connections += m_logic.storePlace.connect([this] { storePlace(); });
    m_connections += m_logic.hide.connect([this] { hide(); });
}

void frmDescription::onKey(int key, Qt::KeyboardModifiers modifiers) {
    if (!m_editor) bindEditor();
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        // There is nothing to undo or redo, or the entries' shortcuts would have taken them.
        if (key == Qt::Key_Z || key == Qt::Key_Y) grid->swallowKey();
        return;
    }
    if (key == Qt::Key_F2) m_editable->doubleClicked.emit();
    if (key == Qt::Key_Delete) m_logic.clearCell();
    if (key == Qt::Key_Menu) m_logic.FlexGrid1_RightClick(m_logic.grid.Col());
    if (m_logic.FlexGrid1_KeyDown(key)) grid->swallowKey();
}

void frmDescription::bindEditor() {
    if (!m_logic.isCurrentCellEditable()) return;
    writeBack();
    m_editor = std::make_unique<clsFlexGridEdit>();
    m_editor->refuseCharacters(";", "A value cannot hold \";\": it ends a command");
    m_editor->setFlexGridControl(*m_editable);
}

void frmDescription::writeBack() {
    if (m_editor) m_editor->writeBack();
}

bool frmDescription::closeBox() {
    writeBack();
    storePlace();
    return m_endProgram();
}

}  // namespace korvex
