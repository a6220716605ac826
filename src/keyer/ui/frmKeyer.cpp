#include "keyer/ui/frmKeyer.h"

#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>
#include <utility>

#include "cat/CatLink.h"
#include "keyer/KeyerWindow.h"
#include "keyer/ui/frmInfo.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "windows/ui/ElidedLabel.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int besideGrid = 400;      // twips of the window's width that are not the grid's
constexpr int aboveAndBelow = 1500;  // twips of the window's height that are not the grid's
constexpr int aroundCells = 90;      // twips of the grid that are not cells

}  // namespace

frmKeyer::frmKeyer(KeyerWindow& logic, CatLink& link, SettingsStore& settings)
    : ToolWindow(geometry::keyer, settings), m_logic(logic) {
    setObjectName(QStringLiteral("frmKeyer"));
    setWindowTitle(QStringLiteral("Keyer Memory"));
    makeMenu(link);
    makeBody();
    m_connections += m_logic.finishEditing.connect([this] {
        if (m_editor) m_editor->writeBack();
    });
    m_connections += m_logic.storePlace.connect([this] { storePlace(); });
    m_connections += m_logic.hide.connect([this] {
        m_editor.reset();
        hide();
    });
    loadPlace();
    fitSize();
}

QAction* frmKeyer::entry(QMenu* menu, const char* name, const char* caption, std::function<void()> run) {
    QAction* action = menu->addAction(QLatin1String(caption));
    action->setObjectName(QLatin1String(name));
    // Queued: what opens a dialog must not keep an assistive program's call waiting until the dialog is closed.
    connect(action, &QAction::triggered, this, std::move(run), Qt::QueuedConnection);
    return action;
}

void frmKeyer::makeMenu(CatLink& link) {
    QMenu* file = menuBar()->addMenu(QStringLiteral("File"));
    file->setObjectName(QStringLiteral("mnu_File"));
    entry(file, "mnu_LoadKeyer", "Load Keyer Memory from Hard Disk", [this] { m_logic.mnu_LoadKeyer_Click(); });
    entry(file, "mnu_SaveKeyer", "Save Keyer Memory to Hard Disk", [this] { m_logic.mnu_SaveKeyer_Click(); });
    file->addSeparator();
    QAction* read =
        entry(file, "mnu_readKeyer", "Read Keyer Memory of FT-2000", [this] { m_logic.mnu_readKeyer_Click(); });
    QAction* write =
        entry(file, "mnu_WriteKeyer", "Write KeyerMemory in to FT-2000", [this] { m_logic.mnu_WriteKeyer_Click(); });
    file->addSeparator();
    entry(file, "mnu_clWindow", "Close Window", [this] { m_logic.mnu_clWindow_Click(); });
    m_connections += link.indicators().open.bind([read, write](bool open) {
        read->setEnabled(open);
        write->setEnabled(open);
    });
    QAction* info = menuBar()->addAction(QStringLiteral("Info"));
    info->setObjectName(QStringLiteral("mnu_Info"));
    connect(info, &QAction::triggered, this, &frmKeyer::mnu_Info_Click);
}

void frmKeyer::makeBody() {
    MSFlexGrid_k1 = new FlexGridView(m_logic.table().MSFlexGrid_k1);
    MSFlexGrid_k1->setObjectName(QStringLiteral("MSFlexGrid_k1"));
    MSFlexGrid_k1->setAccessibleName(QStringLiteral("Keyer memories"));
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    const int margin = pixels(besideGrid) / 2;
    layout->setContentsMargins(margin, margin, pixels(besideGrid) - margin, 0);
    layout->addWidget(MSFlexGrid_k1);
    auto* gestures = new ElidedLabel;
    gestures->setText(
        QStringLiteral("Double click, F2, Enter or typing: edit · Up and Down: next text · Esc: as it was"));
    gestures->setObjectName(QStringLiteral("gestures"));
    gestures->setAccessibleDescription(QStringLiteral("What can be done in the grid"));
    layout->addWidget(gestures);
    layout->addStretch();
    setCentralWidget(body);

    auto* hint = new PanelLabel(m_logic.hint, QStringLiteral("hint"), QStringLiteral("Hint"), this);
    hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long one must not hold the window wide open
    m_connections +=
        m_logic.hint.bind([hint](const std::string& text) { hint->setToolTip(QString::fromStdString(text)); });
    // Where Tab goes from the grid: long hints are read at leisure and copied.
    hint->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    hint->setFocusPolicy(Qt::StrongFocus);
    statusBar()->addWidget(hint, 1);

    m_editable = std::make_unique<QtEditableGrid>(*MSFlexGrid_k1);
    connect(MSFlexGrid_k1, &FlexGridView::cellPressed, this, &frmKeyer::MSFlexGrid_k1_Click);
    connect(MSFlexGrid_k1, &FlexGridView::keyDown, this, [this](int key) {
        if (key == Qt::Key_F2) m_editable->doubleClicked.emit();
    });
}

void frmKeyer::fitSize() {
    const QSize grid = MSFlexGrid_k1->sizeOfWholeGrid() -
                       2 * QSize(MSFlexGrid_k1->frameWidth(), MSFlexGrid_k1->frameWidth()) +
                       QSize(pixels(aroundCells), pixels(aroundCells));
    MSFlexGrid_k1->setMinimumSize(grid);
    MSFlexGrid_k1->setMaximumHeight(grid.height());
    resize(grid.width() + pixels(besideGrid), grid.height() + pixels(aboveAndBelow));
}

void frmKeyer::MSFlexGrid_k1_Click() {
    m_editor = std::make_unique<clsFlexGridEdit2>();
    m_editor->setFlexGridControl(*m_editable);
    m_refused = m_editor->refused.connect([this](const std::string& reason) { m_logic.hint = reason; });
    m_editor->refuseCharacters("|", "\"|\" cannot be part of a keyer text: it separates the columns of a keyer file");
    m_editor->refuseCharacters(";", "\";\" cannot be part of a keyer text: it ends the command to the radio");
}

void frmKeyer::showEvent(QShowEvent* event) {
    ToolWindow::showEvent(event);
    if (!m_editor) MSFlexGrid_k1_Click();  // so that whoever never clicks can type as well
}

void frmKeyer::mnu_Info_Click() {
    if (!m_info) m_info = new frmInfo(this);
    m_info->show();
    m_info->raise();
    m_info->activateWindow();
}

bool frmKeyer::closeBox() {
    m_logic.closeBox();
    return true;
}

}  // namespace korvex
