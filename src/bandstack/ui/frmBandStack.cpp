#include "bandstack/ui/frmBandStack.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "bandstack/BandStackParts.h"
#include "bandstack/BandStackWindow.h"
#include "cat/CatLink.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int besideGrid = 400;      // twips of the window's width that are not the grid's
constexpr int belowLastRow = 100;    // twips of the grid's height that are not rows
constexpr int aboveAndBelow = 1400;  // twips of the window's height that are not the grid's
constexpr int smallestGrid = 1500;   // twips of height that a grid keeps in a window made small

QString fromUtf8(const std::string& text) {
    return QString::fromStdString(text);
}

/// The columns are as wide as they are; a frequency, the longest answer and the one that is looked for, must fit in.
QFont fontForFrequencies(QFont font, int columnWidth) {
    constexpr double smallestPointSize = 7;
    constexpr int frame = 6;
    const QString longest = QStringLiteral("FA00000000;");
    while (font.pointSizeF() > smallestPointSize &&
           QFontMetrics(font).horizontalAdvance(longest) > columnWidth - frame) {
        font.setPointSizeF(font.pointSizeF() - 0.25);
    }
    return font;
}

}  // namespace

frmBandStack::frmBandStack(BandStackWindow& logic, CatLink& link, SettingsStore& settings)
    : ToolWindow(geometry::bandStack, settings), m_logic(logic) {
    setObjectName(QStringLiteral("frmBandStack"));
    setWindowTitle(QStringLiteral("Band Stack Registers"));
    m_logic.Form_Load();
    makeMenu(link);
    makeBody();
    makePartMenu(link);
    makeComparisonMenu(link);
    makeStatusBar(link);
    m_connections += m_logic.storePlace.connect([this] { storePlace(); });
    m_connections += m_logic.hide.connect([this] { hide(); });
    loadPlace();
    // One that nobody has placed yet shows as many registers as the screen is wide.
    if (isNew()) growTo(grid->sizeOfWholeGrid().width() + pixels(besideGrid));
    fitHeight();
}

QAction* frmBandStack::entry(QMenu* menu, const char* name, const char* caption, std::function<void()> run) {
    QAction* action = menu->addAction(QLatin1String(caption));
    action->setObjectName(QLatin1String(name));
    // Queued: what opens a dialog must not keep an assistive program's call waiting until the dialog is closed.
    connect(action, &QAction::triggered, this, std::move(run), Qt::QueuedConnection);
    return action;
}

void frmBandStack::makeMenu(CatLink& link) {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("Menu"));
    menu->setObjectName(QStringLiteral("mnu_menu"));
    QAction* read = entry(menu, "mnu_readBandStack", "Read Band Stack Register of FT-2000",
                          [this] { m_logic.mnu_readBandStack_Click(); });
    QAction* write = entry(menu, "mnu_writeBandStack", "Write Band Stack Register to FT-2000",
                           [this] { m_logic.mnu_writeBandStack_Click(); });
    menu->addSeparator()->setObjectName(QStringLiteral("mnu_bar1"));
    entry(menu, "mnu_loadDatafromHD", "Load Band Stack Datas from Hard Disk",
          [this] { m_logic.mnu_loadDatafromHD_Click(); });
    entry(menu, "mnu_saveDatafromHD", "Save Band Stack Datas to Hard Disk",
          [this] { m_logic.mnu_saveDatafromHD_Click(); });
    menu->addSeparator()->setObjectName(QStringLiteral("mnu_bar2"));
    entry(menu, "mnu_closeWindow", "Close Window", [this] { m_logic.mnu_closeWindow_Click(); });
    m_connections += link.indicators().open.bind([read, write](bool open) {
        read->setEnabled(open);
        write->setEnabled(open);
    });
}

void frmBandStack::makePartMenu(CatLink& link) {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Register"));
    menu->setObjectName(QStringLiteral("mnu_register"));
    QAction* band = entry(menu, "mnu_writeBand", "Write this Band", [this] { m_logic.mnu_writeBand_Click(); });
    QAction* one =
        entry(menu, "mnu_writeRegister", "Write this Register", [this] { m_logic.mnu_writeRegister_Click(); });
    m_connections += m_logic.stack().grid.currentChanged.connect([this, band, one] { nameParts(band, one); });
    nameParts(band, one);
    m_connections += link.indicators().open.bind([band, one](bool open) {
        band->setEnabled(open);
        one->setEnabled(open);
    });
    grid->addActions(menu->actions());
}

void frmBandStack::nameParts(QAction* band, QAction* oneRegister) {
    const int column = std::max(m_logic.stack().grid.Col(), 1);
    band->setText(QStringLiteral("Write %1 alone to FT-2000").arg(fromUtf8(bandInWords(column))));
    oneRegister->setText(QStringLiteral("Write %1 alone to FT-2000...").arg(fromUtf8(registerInWords(column))));
}

void frmBandStack::makeComparisonMenu(CatLink& link) {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Compare"));
    menu->setObjectName(QStringLiteral("mnu_compare"));
    BandStackComparison& comparison = m_logic.comparison();
    entry(menu, "mnu_markRegister", "Mark this Register", [&comparison] {
        comparison.markRegister();
    })->setShortcut(Qt::CTRL | Qt::Key_M);
    entry(menu, "mnu_compareRegisters", "Compare this Register with the marked one", [&comparison] {
        comparison.compareRegisters();
    })->setShortcut(Qt::CTRL | Qt::Key_D);
    entry(menu, "mnu_compareFile", "Compare with File...", [&comparison] { comparison.compareFile(); });
    QAction* radio =
        entry(menu, "mnu_compareRadio", "Compare with FT-2000", [&comparison] { comparison.compareRadio(); });
    menu->addSeparator();
    entry(menu, "mnu_endComparison", "End Comparison", [&comparison] { comparison.end(); });
    m_connections += link.indicators().open.bind([radio](bool open) { radio->setEnabled(open); });
    grid->addActions(menu->actions());
}

void frmBandStack::makeBody() {
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    const int margin = pixels(besideGrid) / 2;
    column->setContentsMargins(margin, 4, pixels(besideGrid) - margin, 4);
    column->setSpacing(4);
    grid = new FlexGridView(m_logic.stack().grid);
    grid->setObjectName(QStringLiteral("FlexGrid1"));
    grid->setAccessibleName(QStringLiteral("Band stack registers"));
    grid->setFont(fontForFrequencies(grid->font(), pixels(m_logic.stack().grid.ColWidth(1))));
    grid->setNamesRows(true);
    grid->setContextMenuPolicy(Qt::ActionsContextMenu);
    // A press on a register's title means that register.
    connect(grid, &FlexGridView::cellPressed, this, [this](int row, int col) {
        if (col > 0) m_logic.stack().grid.setCurrent(std::max(row, 1), col);
    });
    auto* result = new PanelLabel(m_logic.comparison().result, QStringLiteral("comparison"),
                                  QStringLiteral("What the comparison has found"), this);
    m_connections +=
        m_logic.comparison().result.bind([result](const std::string& text) { result->setVisible(!text.empty()); });
    result->setWordWrap(true);
    column->addWidget(grid, 1);
    column->addWidget(result);
    column->addWidget(makeFields());
    setCentralWidget(body);
}

QWidget* frmBandStack::makeFields() {
    auto* fields = new QWidget;
    auto* row = new QHBoxLayout(fields);
    row->setContentsMargins(0, 0, 0, 0);
    loadError = new QLabel;
    loadError->setObjectName(QStringLiteral("Label2"));
    loadError->setAccessibleDescription(QStringLiteral("Error number of the last file load"));
    loadError->setAlignment(Qt::AlignCenter);
    loadError->setFrameShape(QFrame::StyledPanel);
    loadError->setMinimumWidth(loadError->fontMetrics().horizontalAdvance(QStringLiteral("00000")));
    m_connections += m_logic.loadError.bind([this](const std::string& text) { showNamed(*loadError, text); });
    m_connections += m_logic.loadErrorSeen.bind([this](bool yellow) {
        if (yellow) loadError->setStyleSheet(QStringLiteral("background-color: #ffff00; color: black"));
    });
    cellWritten = new QLineEdit;
    cellWritten->setObjectName(QStringLiteral("Text3"));
    cellWritten->setAccessibleName(QStringLiteral("Text being written to the radio"));
    cellWritten->setReadOnly(true);
    cellWritten->setFocusPolicy(Qt::ClickFocus);
    m_connections +=
        m_logic.cellWritten.bind([this](const std::string& text) { cellWritten->setText(fromUtf8(text).trimmed()); });
    loadError->setFixedHeight(cellWritten->sizeHint().height());
    row->addWidget(loadError);
    row->addWidget(cellWritten, 1);
    return fields;
}

void frmBandStack::makeStatusBar(CatLink& link) {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    auto* port = new PanelLabel(link.indicators().bandStack, QStringLiteral("portinfo"),
                                QStringLiteral("State of the serial port"), this);
    auto* path =
        new PanelLabel(m_logic.dateipath, QStringLiteral("Dateipath"), QStringLiteral("Band stack file"), this);
    // A long path must not hold the window wide open.
    path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_connections += m_logic.dateipath.bind([path](const std::string& text) { path->setToolTip(fromUtf8(text)); });
    statusBar()->addWidget(port);
    statusBar()->addWidget(path, 1);
}

/// The window opens as high as its rows ask for; in a smaller one the grid scrolls, in a larger one it grows.
void frmBandStack::fitHeight() {
    const int rows = m_logic.stack().grid.Rows();
    const int gridHeight = (rows - 1) * grid->rowHeight(0) + pixels(belowLastRow);
    grid->setMinimumHeight(pixels(smallestGrid));
    resize(width(), gridHeight + pixels(aboveAndBelow));
}

bool frmBandStack::closeBox() {
    m_logic.closeBox();
    return true;
}

}  // namespace korvex
