#include "memory/ui/frmChannelinfo.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "memory/ui/FindBar.h"
#include "memory/ui/PopupList.h"
#include "platform/Settings.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int gridWidth = 10000;  // twips
constexpr int besideGrid = 500;

std::string clipboardText() {
    return QApplication::clipboard()->text().toStdString();
}

QAction* withKeys(QAction* action, const QList<QKeySequence>& keys) {
    action->setShortcuts(keys);
    return action;
}

}  // namespace

frmChannelinfo::frmChannelinfo(MemoryManager& memory, CatLink& link, ToolWindows& windows, SettingsStore& settings,
                               ListTableActions tables)
    : ToolWindow(geometry::memoryList, settings),
      m_memory(memory),
      m_link(link),
      m_windows(windows),
      m_settings(settings),
      m_tables(std::move(tables)) {
    setObjectName(QStringLiteral("frmChannelinfo"));
    makeMenus();
    makeBody();
    makeList1();
    makeEditMenu();
    makeViewMenu();
    makeStatusBar();
    m_connections += m_link.indicators().open.bind([this](bool open) {
        for (QAction* radioEntry : m_radioEntries) radioEntry->setEnabled(open);
    });
    m_connections += m_memory.list.modified.bind([this](bool modified) { markModified(modified); });
    loadPlace();
    resize(pixels(gridWidth + besideGrid), height());
}

void frmChannelinfo::markModified(bool modified) {
    const QString title = QStringLiteral("Memory Channel List");
    // Qt shows its mark where the placeholder stands, and complains of a mark without one.
    if (!modified) setWindowModified(false);
    setWindowTitle(modified ? title + QStringLiteral("[*]") : title);
    if (modified) setWindowModified(true);
}

QAction* frmChannelinfo::entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    // Queued: what opens a box must not keep an assistive program's call waiting until the box is closed.
    connect(action, &QAction::triggered, this, std::move(run), Qt::QueuedConnection);
    return action;
}

void frmChannelinfo::makeMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("File"));
    file->setObjectName(QStringLiteral("mnuFile"));
    entry(file, "mnu_LoadMemFile", QStringLiteral("Load Memory File in to List"),
          [this] { m_memory.listFiles.loadListFile(); });
    entry(file, "mnu_SaveMemFile", QStringLiteral("Save Memory List in to File"),
          [this] { m_memory.listFiles.saveListFile(); });
    file->addSeparator();
    makeTableEntries(file);
    file->addSeparator();
    m_radioEntries << entry(file, "mnu_MemSaveFromFT2000", QStringLiteral("Read Memories from FT-2000"),
                            [this] { m_memory.listReader.mnu_MemSaveFromFT2000_Click(); });
    m_radioEntries << entry(file, "mnu_MemRestoreTOFT2000", QStringLiteral("Load Memory List in to FT-2000"),
                            [this] { m_memory.listWriter.mnu_MemRestoreTOFT2000_Click(); });
    file->addSeparator();
    entry(file, "mnu_closeWindow", QStringLiteral("Close Window"), [this] {
        store();
        m_windows.memoryList.hide();
        m_memory.buttonBackToNormal.emit();
    });
    QMenu* port = menuBar()->addMenu(QStringLiteral("Com-Port"));
    port->setObjectName(QStringLiteral("mnu_openCommPort"));
    entry(port, "mnu_openCloseComPort", QStringLiteral("open/close Com-Port"), [this] { m_link.togglePort(); });
}

void frmChannelinfo::makeTableEntries(QMenu* menu) {
    entry(menu, "mnu_importTable", QStringLiteral("Import from CHIRP or Spreadsheet (CSV)..."), m_tables.importTable);
    entry(menu, "mnu_exportChirp", QStringLiteral("Export for CHIRP (CSV)..."), m_tables.exportForChirp);
    entry(menu, "mnu_exportSheet", QStringLiteral("Export as Spreadsheet (CSV)..."), m_tables.exportSheet);
}

void frmChannelinfo::makeEditMenu() {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Edit"));
    menu->setObjectName(QStringLiteral("mnu_edit"));
    MemoryListEdits& edits = m_memory.listEdits;
    QAction* undo = entry(menu, "mnu_undo", QStringLiteral("Undo"), [&edits] { edits.undo(); });
    QAction* redo = entry(menu, "mnu_redo", QStringLiteral("Redo"), [&edits] { edits.redo(); });
    followHistory(withKeys(undo, {QKeySequence::Undo}), withKeys(redo, {QKeySequence::Redo, Qt::CTRL | Qt::Key_Y}));
    menu->addSeparator();
    makeRowEntries(menu);
    menu->addSeparator();
    withKeys(entry(menu, "mnu_find", QStringLiteral("Find..."), [this] { m_findBar->open(); }), {QKeySequence::Find});
    withKeys(entry(menu, "mnu_findNext", QStringLiteral("Find Next"), [this] { m_findBar->findAgain(true); }),
             {Qt::Key_F3});
    withKeys(entry(menu, "mnu_findPrevious", QStringLiteral("Find Previous"), [this] { m_findBar->findAgain(false); }),
             {Qt::SHIFT | Qt::Key_F3});
}

void frmChannelinfo::makeRowEntries(QMenu* menu) {
    MemoryListEdits& edits = m_memory.listEdits;
    const auto add = [&](const char* name, const char* caption, const QKeySequence& key, std::function<void()> run) {
        QAction* action = withKeys(entry(menu, name, QLatin1String(caption), std::move(run)), {key});
        // Not while a cell is edited or something looked for: those have uses of their own for the keys.
        action->setShortcutContext(Qt::WidgetShortcut);
        grid->addAction(action);
    };
    add("mnu_editCell", "Edit Cell", Qt::Key_F2, [this] { grid->editCurrent(); });
    add("mnu_copy", "Copy Rows", QKeySequence::Copy, [this, &edits] { edits.copyRows(chosen()); });
    add("mnu_copyHeadings", "Copy Rows with Headings", Qt::CTRL | Qt::SHIFT | Qt::Key_C,
        [this, &edits] { edits.copyRows(chosen(), true); });
    add("mnu_paste", "Paste", QKeySequence::Paste, [this, &edits] { edits.paste(chosen(), clipboardText()); });
    add("mnu_clear", "Delete Content", QKeySequence::Delete, [this, &edits] { edits.clearRows(chosen()); });
    add("mnu_insertRow", "Insert a Row", Qt::Key_Insert, [this, &edits] { edits.insertRow(m_memory.list.grid.Row()); });
    add("mnu_deleteRows", "Delete Rows", Qt::CTRL | Qt::Key_Delete, [this, &edits] { edits.deleteRows(chosen()); });
    add("mnu_moveUp", "Move up", Qt::ALT | Qt::Key_Up, [this, &edits] { edits.moveRows(chosen(), true); });
    add("mnu_moveDown", "Move down", Qt::ALT | Qt::Key_Down, [this, &edits] { edits.moveRows(chosen(), false); });
    add("mnu_selectAll", "Select all Rows", QKeySequence::SelectAll, [this] { grid->selectAll(); });
}

void frmChannelinfo::makeViewMenu() {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&View"));
    menu->setObjectName(QStringLiteral("mnu_view"));
    const auto addSwitch = [&](const char* name, const char* caption, const QKeySequence& key, Property<bool>& value) {
        QAction* action = menu->addAction(QLatin1String(caption));
        action->setObjectName(QLatin1String(name));
        action->setCheckable(true);
        action->setShortcut(key);
        m_connections += value.bind([action](bool on) { action->setChecked(on); });
        connect(action, &QAction::toggled, this, [&value](bool on) { value = on; });
    };
    MemoryListFace& face = m_memory.listFace;
    face.readable = readSetting(m_settings, keys::memoryListReadable);
    addSwitch("mnu_readable", "Readable in place of Codes", Qt::CTRL | Qt::Key_R, face.readable);
    addSwitch("mnu_onlyFilled", "Only filled Rows", Qt::CTRL | Qt::Key_E, face.onlyFilled);
    m_connections +=
        face.readable.changed.connect([this](bool on) { writeSetting(m_settings, keys::memoryListReadable, on); });
}

void frmChannelinfo::followHistory(QAction* undo, QAction* redo) {
    const auto show = [](QAction* action, const char* verb, const std::string& what) {
        action->setEnabled(!what.empty());
        action->setText((QLatin1String(verb) + QLatin1Char(' ') + QString::fromStdString(what)).trimmed());
    };
    const auto follow = [this, show, undo, redo] {
        show(undo, "Undo", m_memory.list.history().undoable());
        show(redo, "Redo", m_memory.list.history().redoable());
    };
    m_connections += m_memory.list.rowsChanged.connect(follow);
    follow();
}

void frmChannelinfo::makeBody() {
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    makeGrid();
    m_findBar = new FindBar;
    column->addWidget(grid, 1);
    column->addWidget(m_findBar);
    column->addWidget(makeNotes());
    setCentralWidget(body);
    connect(m_findBar, &FindBar::wanted, this,
            [this](const QString& text, bool forward) { m_memory.listEdits.find(text.toStdString(), forward); });
    connect(m_findBar, &FindBar::closed, grid, [this] { grid->setFocus(); });
}

QWidget* frmChannelinfo::makeNotes() {
    auto* notes = new QWidget;
    auto* row = new QHBoxLayout(notes);
    row->setContentsMargins(4, 2, 4, 0);
    auto* told = new PanelLabel(m_memory.listEdits.told, QStringLiteral("told"), QStringLiteral("What was done last"));
    told->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_connections += m_memory.listEdits.told.bind(
        [told](const std::string& text) { told->setToolTip(QString::fromStdString(text)); });
    auto* summary =
        new PanelLabel(m_memory.listFace.summary, QStringLiteral("summary"), QStringLiteral("Rows of the list"));
    row->addWidget(told, 1);
    row->addWidget(summary);
    return notes;
}

void frmChannelinfo::makeGrid() {
    grid = new FlexGridView(m_memory.list.grid, this);
    grid->setObjectName(QStringLiteral("FlexGrid1"));
    grid->setAccessibleName(QStringLiteral("Memory channels"));
    grid->setEditsCells(true);
    grid->setChoosesRows(true);
    connect(grid, &FlexGridView::cellPressed, this, &frmChannelinfo::pressed);
    connect(grid, &FlexGridView::cellDoubleClicked, grid, &FlexGridView::editCurrent);
    connect(grid, &FlexGridView::keyDown, this, &frmChannelinfo::keyDown);
    connect(grid, &FlexGridView::editRefused, this,
            [this](const QString& why) { m_memory.listEdits.told = why.toStdString(); });
    m_connections += m_memory.listEdits.textCopied.connect(
        [](const std::string& text) { QApplication::clipboard()->setText(QString::fromStdString(text)); });
    m_connections +=
        m_memory.listEdits.rowsMoved.connect([this](const std::vector<int>& rows) { grid->chooseRows(rows); });
}

void frmChannelinfo::makeList1() {
    List1 = new PopupList({QStringLiteral("del content"), QStringLiteral("insert a row"),
                           QStringLiteral("delete a row"), QStringLiteral("Ctrl+C"), QStringLiteral("Ctrl + V")},
                          this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(QStringLiteral("What to do with the row"));
    List1->item(3)->setToolTip(QStringLiteral("copy the row"));
    List1->item(4)->setToolTip(QStringLiteral("insert the copied row"));
    connect(List1, &PopupList::closed, grid, [this] { grid->setFocus(); });
    connect(List1, &PopupList::entryChosen, this,
            [this](int entry) { m_memory.listEdits.List1_Click(entry, chosen(), clipboardText()); });
}

std::vector<int> frmChannelinfo::chosen() const {
    return grid->chosenRows();
}

void frmChannelinfo::makeStatusBar() {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    auto* path =
        new PanelLabel(m_memory.listFiles.files.path, QStringLiteral("filepath"), QStringLiteral("Memory list file"));
    path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(path, 1);
}

void frmChannelinfo::pressed(int row, int col, Qt::MouseButton button) {
    List1->hide();
    if (row < 1) return;
    m_memory.list.grid.setCurrent(row, std::max(col, 1));
    if (button == Qt::LeftButton) m_memory.editor.chooseRow(row);
    if (button == Qt::RightButton) {
        // A press that no mouse made has left the cursor elsewhere.
        const QRect cell = grid->cellGeometryIn(*this, row, col);
        const QPoint mouse = mapFromGlobal(QCursor::pos());
        showList1(cell.contains(mouse) ? mouse : cell.center());
    }
}

void frmChannelinfo::keyDown(int key) {
    if (key == Qt::Key_Menu) {
        const auto& cells = m_memory.list.grid;
        showList1(grid->cellGeometryIn(*this, cells.Row(), cells.Col()).center());
    }
    if (key != Qt::Key_C && key != Qt::Key_V) return;
    grid->swallowKey();
    m_memory.listEdits.FlexGrid1_KeyDown(static_cast<char>(key), chosen(), clipboardText());
}

void frmChannelinfo::showList1(const QPoint& at) {
    List1->openBeside(at, QRect(grid->mapTo(this, QPoint()), grid->size()));
}

void frmChannelinfo::store() {
    storePlace();
    m_memory.listFiles.files.store();
}

bool frmChannelinfo::closeBox() {
    store();
    m_windows.memoryList.hide();
    return true;
}

}  // namespace korvex
