#include "app/ui/frmUtilities.h"

#include <QEvent>
#include <QMenuBar>
#include <QScrollArea>
#include <algorithm>

#include "windows/ui/ColorButton.h"
#include "windows/ui/SvgArt.h"

namespace korvex {

namespace {

constexpr QSize pictureSize(360, 150);
constexpr int pictureTop = 240;  // twips
constexpr int gap = 150;
constexpr int buttonHeight = 600;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

frmUtilities::frmUtilities(StartWindow& logic, SettingsStore& settings, std::function<void(QWidget*)> showAbout)
    : ToolWindow(geometry::startWindow, settings), m_logic(logic), m_showAbout(std::move(showAbout)) {
    setObjectName(QStringLiteral("frmUtilities"));
    setWindowTitle(text(applicationName));
    makeMenus();

    makeFace();
    Picture1 = new SvgPicture(QStringLiteral(":/images/ft2000-front.svg"), m_face);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setAccessibleName(QStringLiteral("Picture of the radio"));
    Picture1->resize(pictureSize);
    for (int tool = 0; tool < StartWindow::toolCount; ++tool) makeButton(tool);

    m_face->setMinimumSize(Picture1->width(), layOut());
    m_face->installEventFilter(this);
    loadPlace();
}

void frmUtilities::makeFace() {
    // On a screen that is too small for all six buttons the rest is scrolled to.
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    m_face = new QWidget;
    scroll->setWidget(m_face);
    setCentralWidget(scroll);
}

void frmUtilities::makeMenus() {
    menuBar()->setObjectName(QStringLiteral("menuBar"));
    QMenu* files = menuBar()->addMenu(QStringLiteral("Files"));
    files->setObjectName(QStringLiteral("mnu_Files"));
    const auto name = [](QAction* action, const char* objectName, const QKeySequence& keys) {
        action->setObjectName(QLatin1String(objectName));
        action->setShortcut(keys);
        return action;
    };
    connect(name(files->addAction(QStringLiteral("Exit Program")), "mnu_Exit", QKeySequence(Qt::CTRL | Qt::Key_Q)),
            &QAction::triggered, this, &QWidget::close, Qt::QueuedConnection);
    connect(
        name(menuBar()->addAction(QStringLiteral("Help")), "mnu_Help", QKeySequence(Qt::Key_F1)), &QAction::triggered,
        this, [this] { m_logic.mnuHelp_Click(); }, Qt::QueuedConnection);
    connect(name(menuBar()->addAction(QStringLiteral("About")), "mnu_About", {}), &QAction::triggered, this,
            [this] { m_showAbout(this); });
}

void frmUtilities::makeButton(int tool) {
    const auto index = static_cast<std::size_t>(tool);
    auto* button = new ColorButton(text(StartWindow::captions[index]), m_face);
    Command1[index] = button;
    button->setObjectName(QStringLiteral("Command1_%1").arg(tool));
    QFont larger = button->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.15);
    button->setFont(larger);
    connect(button, &QPushButton::clicked, this, [this, tool] { m_logic.Command1_Click(tool); });
    m_connections += m_logic.backColor(tool).bind([button](int color) {
        const bool inUse = color == StartWindow::lightGreen;
        button->setBackColor(color);
        button->setMarked(inUse);
        button->setAccessibleDescription(inUse ? QStringLiteral("in use") : QString());
    });
    m_connections += m_logic.enabled[index].bind([button](bool enabled) { button->setEnabled(enabled); });
}

bool frmUtilities::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_face && event->type() == QEvent::Resize) {
        layOut();
        m_logic.Form_Resize();
    }
    return ToolWindow::eventFilter(watched, event);
}

int frmUtilities::layOut() {
    const int left = (m_face->width() - Picture1->width()) / 2;
    Picture1->move(left, pixels(pictureTop));
    int top = Picture1->y() + Picture1->height() + pixels(gap);
    for (ColorButton* button : Command1) {
        const int height = std::max(pixels(buttonHeight), button->sizeHint().height());
        button->setGeometry(left, top, Picture1->width(), height);
        top += height + pixels(gap);
    }
    return top;
}

bool frmUtilities::closeBox() {
    storePlace();
    return m_logic.Form_Unload();
}

}  // namespace korvex
