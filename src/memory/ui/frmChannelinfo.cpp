#include "memory/ui/frmChannelinfo.h"

#include <QCursor>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QStatusBar>
#include <algorithm>

#include "platform/qtwidgets/FlexGridView.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int gridWidth = 10000;  // twips
constexpr int besideGrid = 500;

}  // namespace

frmChannelinfo::frmChannelinfo(MemoryManager& memory, CatLink& link, ToolWindows& windows, SettingsStore& settings)
    : ToolWindow(geometry::memoryList, settings), m_memory(memory), m_link(link), m_windows(windows) {
    setObjectName(QStringLiteral("frmChannelinfo"));
    makeMenus();
    makeGrid();
    makeList1();
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

void frmChannelinfo::makeGrid() {
    grid = new FlexGridView(m_memory.list.grid, this);
    grid->setObjectName(QStringLiteral("FlexGrid1"));
    grid->setAccessibleName(QStringLiteral("Memory channels"));
    connect(grid, &FlexGridView::cellPressed, this, &frmChannelinfo::pressed);
    connect(grid, &FlexGridView::keyDown, this, &frmChannelinfo::keyDown);
    setCentralWidget(grid);
}

void frmChannelinfo::makeList1() {
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(QStringLiteral("What to do with the row"));
    List1->addItems({QStringLiteral("del content"), QStringLiteral("insert a row"), QStringLiteral("delete a row"),
                     QStringLiteral("Ctrl+C"), QStringLiteral("Ctrl + V")});
    List1->item(3)->setToolTip(QStringLiteral("copy the row"));
    List1->item(4)->setToolTip(QStringLiteral("insert the copied row"));
    List1->setFixedSize(List1->sizeHintForColumn(0) + 24, 5 * List1->sizeHintForRow(0) + 2 * List1->frameWidth());
    List1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    List1->setMouseTracking(true);
    List1->hide();
    List1->installEventFilter(this);
    connect(List1, &QListWidget::itemEntered, List1, [this](QListWidgetItem* item) { List1->setCurrentItem(item); });
    connect(List1, &QListWidget::itemClicked, this, [this] { chooseFromList1(List1->currentRow()); });
}

void frmChannelinfo::makeStatusBar() {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    auto* path =
        new PanelLabel(m_memory.listFiles.files.path, QStringLiteral("filepath"), QStringLiteral("Memory list file"));
    path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(path, 1);
}

void frmChannelinfo::pressed(int row, int col, Qt::MouseButton button) {
    hideList1();
    if (row < 1) return;
    auto& cells = m_memory.list.grid;
    cells.setCurrent(row, std::max(col, 1));
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
    m_memory.list.FlexGrid1_KeyDown(static_cast<char>(key));
    grid->swallowKey();
}

void frmChannelinfo::showList1(const QPoint& at) {
    const QRect room = grid->geometry();
    List1->move(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - List1->width())),
                std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - List1->height())));
    List1->setCurrentRow(-1);
    List1->show();
    List1->raise();
    List1->setFocus();
}

void frmChannelinfo::hideList1() {
    if (!List1->isVisible()) return;
    List1->hide();
    grid->setFocus();
}

void frmChannelinfo::chooseFromList1(int entry) {
    hideList1();
    m_memory.list.List1_Click(entry);
}

bool frmChannelinfo::eventFilter(QObject* watched, QEvent* event) {
    if (watched != List1) return ToolWindow::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut) hideList1();
    if (event->type() != QEvent::KeyPress) return false;
    switch (static_cast<const QKeyEvent&>(*event).key()) {
        case Qt::Key_Escape: hideList1(); return true;
        case Qt::Key_Return:
        case Qt::Key_Enter: chooseFromList1(List1->currentRow()); return true;
        default: return false;
    }
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
