#include "eq/ui/frmEQ_Set.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <functional>

#include "eq/EqWindow.h"
#include "eq/ui/EqCurveView.h"
#include "eq/ui/EqScale.h"
#include "eq/ui/EqSlider.h"
#include "windows/ui/PanelLabel.h"
#include "windows/ui/PortSwitch.h"
#include "windows/ui/SvgArt.h"

namespace korvex {

namespace {

constexpr int gap = 6;
constexpr std::array bandCaptions{"EQ Settings (Low)", "EQ Settings (Middle)", "EQ Settings (High)"};
constexpr const char* connectedImage = ":/images/connected.svg";
constexpr const char* toolBarImage = ":/images/port-open.svg";
constexpr const char* notConnectedImage = ":/images/not-connected.svg";

QString fromUtf8(const std::string& text) {
    return QString::fromStdString(text);
}

QString numbered(const char* name, std::size_t index) {
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index);
}

/// The second of two widgets in one place comes to sight; whoever works with the keyboard stays where he is.
void exchangeInPlace(QWidget* going, QWidget* coming) {
    const bool focused = going->hasFocus();
    coming->show();
    if (focused) coming->setFocus();
    going->hide();
}

}  // namespace

frmEQ_Set::frmEQ_Set(EqWindow& logic, SettingsStore& settings)
    : ToolWindow(geometry::equalizer, settings),
      m_logic(logic),
      m_portSwitch(new PortSwitch([this] { return m_logic.isPortOpen(); }, [this] { m_logic.toggleEqPort(); }, this)) {
    setObjectName(QStringLiteral("frmEQ_Set"));
    setWindowTitle(QStringLiteral("FT-2000 Equalizer Settings"));
    setContextMenuPolicy(Qt::NoContextMenu);
    buildMenu();
    buildEqualizerMenu();
    buildToolBar();
    buildBody();
    buildStatusBar();
    wire();
    loadPlace();
    m_logic.Form_Load(settings);
}

void frmEQ_Set::buildMenu() {
    auto* menu = menuBar()->addMenu(QStringLiteral("RS-232 Port"));
    menu->setObjectName(QStringLiteral("PortSet"));
    auto* comop = menu->addAction(QStringLiteral("Open RS-232 Port"));
    comop->setObjectName(QStringLiteral("comop"));
    m_portSwitch->add(comop);
    menu->addSeparator();
    auto* exit = menu->addAction(QStringLiteral("Exit"));
    exit->setObjectName(QStringLiteral("mnu_EXit"));
    connect(
        exit, &QAction::triggered, this, [this] { m_logic.mnu_EXit_Click(); }, Qt::QueuedConnection);
}

void frmEQ_Set::buildEqualizerMenu() {
    auto* menu = menuBar()->addMenu(QStringLiteral("E&qualizer"));
    menu->setObjectName(QStringLiteral("mnu_Equalizer"));
    const auto add = [&](const char* name, const QString& caption, const QKeySequence& keys, void (EqWindow::*run)()) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(keys);
        connect(
            action, &QAction::triggered, this, [this, run] { std::invoke(run, m_logic); }, Qt::QueuedConnection);
        return action;
    };
    m_readAgain = add("mnu_ReadAgain", QStringLiteral("&Read again"), Qt::Key_F5, &EqWindow::mnu_ReadAgain_Click);
    menu->addSeparator();
    m_setActions = {
        add("mnu_LoadPreset", QStringLiteral("&Load Preset..."), QKeySequence::Open, &EqWindow::mnu_LoadPreset_Click),
        add("mnu_SavePreset", QStringLiteral("&Save Preset..."), QKeySequence::Save, &EqWindow::mnu_SavePreset_Click)};
    menu->addSeparator();
    m_setActions += add("mnu_CopyOffToOn", QStringLiteral("Copy OFF set to O&N"), {}, &EqWindow::mnu_CopyOffToOn_Click);
    m_setActions += add("mnu_CopyOnToOff", QStringLiteral("Copy ON set to O&FF"), {}, &EqWindow::mnu_CopyOnToOff_Click);
}

void frmEQ_Set::buildToolBar() {
    auto* bar = addToolBar(QStringLiteral("Port"));
    bar->setObjectName(QStringLiteral("tbrToolBar"));
    bar->setMovable(false);
    bar->setIconSize({24, 24});
    auto* openPort = bar->addAction(svgIcon(QLatin1String(toolBarImage)), QStringLiteral("Open RS-232 Port"));
    openPort->setObjectName(QStringLiteral("openPort"));
    openPort->setToolTip(QStringLiteral("Open RS-232 Port"));
    m_portSwitch->add(openPort, bar);
    auto* button = bar->widgetForAction(openPort);
    button->setObjectName(QStringLiteral("openPort"));
    button->setAccessibleName(QStringLiteral("Open RS-232 Port"));
}

void frmEQ_Set::buildStatusBar() {
    statusBar()->setObjectName(QStringLiteral("sbrStatus"));
    statusBar()->addWidget(new PanelLabel(m_logic.settingsPanel, QStringLiteral("Settings"),
                                          QStringLiteral("Settings of the Serial Port"), this));
    statusBar()->addWidget(new PanelLabel(m_logic.errorPanel, QStringLiteral("Error"), QStringLiteral("Error"), this),
                           1);
}

void frmEQ_Set::buildBody() {
    auto* body = new QWidget;
    auto* layout = new QGridLayout(body);
    layout->setContentsMargins(gap, gap, gap, 0);
    layout->setSpacing(4);
    m_curve = new EqCurveView(body);
    m_curve->setObjectName(QStringLiteral("picCurve"));
    layout->addWidget(m_curve, 0, 0, 1, 3);
    for (std::size_t band = 0; band < 3; ++band) {
        layout->addWidget(makeBand(band), 1, static_cast<int>(band));
        layout->setColumnStretch(static_cast<int>(band), 1);
    }
    buildStrip();
    layout->addWidget(m_strip, 2, 0, 1, 3);
    layout->setRowStretch(0, 2);
    layout->setRowStretch(1, 3);
    setCentralWidget(body);
}

QGroupBox* frmEQ_Set::makeBand(std::size_t band) {
    auto* frame = new QGroupBox(QLatin1String(bandCaptions[band]));
    frame->setObjectName(QStringLiteral("Frame%1").arg(band + 1));
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(4, gap, 4, gap);
    grid->setHorizontalSpacing(0);
    auto* Label4 = new QLabel(QStringLiteral("Center  Gain      Q"));
    Label4->setObjectName(numbered("Label4", band));
    Label4->setAlignment(Qt::AlignHCenter);
    grid->addWidget(Label4, 0, 0, 1, 6);
    for (std::size_t column = 0; column < 3; ++column) makeItem(3 * band + column, grid, 2 * static_cast<int>(column));
    grid->setRowStretch(1, 1);
    // The style asks for far more than a caption needs; three frames of one width fit the window as it opens first.
    frame->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1String(bandCaptions[1])) + 2 * gap);
    return frame;
}

void frmEQ_Set::makeItem(std::size_t item, QGridLayout* grid, int column) {
    VScroll1[item] = new EqSlider(eqItems[item]);
    VScroll1[item]->setObjectName(numbered("VScroll1", item));
    Label1[item] = new QLabel;
    Label1[item]->setObjectName(numbered("Label1", item));
    m_units[item] = new QLabel;
    m_units[item]->setObjectName(numbered("lblUnit", item));
    for (auto* label : {Label1[item], m_units[item]}) label->setAlignment(Qt::AlignCenter);
    Label1[item]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("3200")));
    grid->addWidget(VScroll1[item], 1, column);
    m_scales[item] = new EqScale(eqItems[item], *VScroll1[item]);
    grid->addWidget(m_scales[item], 1, column + 1);
    grid->addWidget(Label1[item], 2, column, 1, 2);
    grid->addWidget(m_units[item], 3, column, 1, 2);
    grid->setColumnStretch(column, 1);
}

void frmEQ_Set::buildStrip() {
    m_strip = new QWidget;
    m_strip->installEventFilter(this);
    Command1 = {makeProcessorButton(0, "Processor OFF"), makeProcessorButton(1, "Processor ON")};

    cmdReadAgain = new QPushButton(QStringLiteral("Read again"), m_strip);
    cmdReadAgain->setObjectName(QStringLiteral("cmdReadAgain"));
    cmdReadAgain->setToolTip(QStringLiteral("Reads both sets and the processor's state from the radio"));
    connect(cmdReadAgain, &QPushButton::clicked, m_readAgain, &QAction::trigger);

    Frame7 = new QFrame(m_strip);
    Frame7->setObjectName(QStringLiteral("Frame7"));
    Frame7->setAccessibleName(QStringLiteral("Connection"));
    Frame7->setFrameShape(QFrame::StyledPanel);
    m_images = new QStackedLayout(Frame7);
    m_images->setContentsMargins(2, 2, 2, 2);
    imgConnected = makeImage("imgConnected", connectedImage, "Port is open, close it");
    imgNotConnected = makeImage("imgNotConnected", notConnectedImage, "Port is closed, open it");

    Frame8 = new QFrame(m_strip);
    Frame8->setObjectName(QStringLiteral("Frame8"));
    Frame8->setAccessibleName(QStringLiteral("What a click on the connection does"));
    Frame8->setFrameShape(QFrame::StyledPanel);
    auto* around = new QGridLayout(Frame8);
    around->setContentsMargins(4, 1, 4, 1);
    portHint = new QLabel(QStringLiteral("click to close"));
    portHint->setObjectName(QStringLiteral("Label5"));
    portHint->setAlignment(Qt::AlignCenter);
    portHint->setMinimumWidth(portHint->sizeHint().width());
    around->addWidget(portHint, 0, 0);

    Label6 = new QLabel(m_strip);
    Label6->setObjectName(QStringLiteral("Label6"));
    Label6->setAccessibleDescription(QStringLiteral("Whether the settings are being read"));
    placeStrip();
}

QToolButton* frmEQ_Set::makeImage(const char* name, const char* file, const char* accessibleName) {
    auto* image = new QToolButton;
    image->setObjectName(QLatin1String(name));
    image->setAccessibleName(QLatin1String(accessibleName));
    image->setToolTip(QStringLiteral("open/close Comm-Port"));
    image->setIcon(QIcon(QLatin1String(file)));
    image->setIconSize({48, 24});
    image->setAutoRaise(true);
    m_images->addWidget(image);
    connect(
        image, &QToolButton::clicked, this, [this] { m_logic.toggleEqPort(); }, Qt::QueuedConnection);
    return image;
}

QPushButton* frmEQ_Set::makeProcessorButton(int index, const char* caption) {
    auto* button = new QPushButton(QLatin1String(caption), m_strip);
    button->setObjectName(numbered("Command1", static_cast<std::size_t>(index)));
    button->setToolTip(QStringLiteral("Processor On/OFF Switch"));
    connect(
        button, &QPushButton::clicked, this, [this, index] { m_logic.Command1_Click(index); }, Qt::QueuedConnection);
    return button;
}

/// Measured from the client width of the window: the port's frames one and a half of their own widths from the right
/// edge, the processor's button 1000 twips right of the middle with its right edge.
void frmEQ_Set::placeStrip() {
    const int client = m_strip->width() + 2 * gap;
    const auto place = [](QWidget* widget, int windowLeft, int top, QSize size) {
        widget->setGeometry(windowLeft - gap, top, size.width(), size.height());
    };
    const QSize image = Frame7->sizeHint();
    const QSize label = Frame8->sizeHint();
    const QSize button = Command1[0]->sizeHint().expandedTo(Command1[1]->sizeHint()).expandedTo({110, image.height()});
    for (auto* processor : Command1) place(processor, client / 2 + pixels(1000) - button.width(), 0, button);
    place(cmdReadAgain, gap, 0, cmdReadAgain->sizeHint());
    place(Frame7, client - image.width() * 3 / 2, 0, image);
    place(Frame8, client - label.width() * 3 / 2, image.height() + gap, label);
    const int statusRight = Frame8->x() - gap;
    Label6->setGeometry(0, image.height() + gap, statusRight, label.height());

    m_strip->setFixedHeight(image.height() + gap + label.height() + gap);
    // Nothing covers anything: the button ends left of the frames, the status text left of its frame.
    const int forRead = 2 * (cmdReadAgain->width() + 2 * gap + button.width() - pixels(1000));
    const int forButton = std::max(forRead, 2 * (label.width() * 3 / 2 + pixels(1000) + gap));
    const int forStatus = Label6->fontMetrics().horizontalAdvance(QStringLiteral(" Reading EQ Settings of FT-2000 ")) +
                          label.width() * 3 / 2;
    m_strip->setMinimumWidth(std::max(forButton, forStatus) - 2 * gap);
}

bool frmEQ_Set::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_strip && event->type() == QEvent::Resize) placeStrip();
    return ToolWindow::eventFilter(watched, event);
}

void frmEQ_Set::wire() {
    for (std::size_t item = 0; item < eqItemCount; ++item) wireItem(item);
    wireCurve();
    m_connections += m_logic.connected.bind([this](bool connected) { showConnected(connected); });
    m_connections += m_logic.exchange().processorOn.bind([this](bool on) { showProcessor(on); });
    m_connections += m_logic.portHint.bind([this](const std::string& text) { portHint->setText(fromUtf8(text)); });
    m_connections += m_logic.exchange().statusText.bind([this](const std::string& text) { showNamed(*Label6, text); });
    m_connections += m_logic.storePlace.connect([this] { storePlace(); });
    m_connections += m_logic.hide.connect([this] { hide(); });
}

void frmEQ_Set::wireItem(std::size_t item) {
    auto& exchange = m_logic.exchange();
    connect(VScroll1[item], &QSlider::valueChanged, this,
            [this, item](int value) { m_logic.exchange().applyValue(item, value); });
    // What the radio sets moves the slider without being a change of the user's.
    m_connections += exchange.value[item].bind([this, item](int value) {
        const QSignalBlocker quiet(VScroll1[item]);
        VScroll1[item]->setValue(value);
        showUnit(item);
    });
    // Grey: where it stands says nothing about the radio.
    m_connections += exchange.known[item].bind([this, item](bool known) {
        for (QWidget* control : {static_cast<QWidget*>(VScroll1[item]), static_cast<QWidget*>(Label1[item]),
                                 static_cast<QWidget*>(m_units[item]), m_scales[item]}) {
            control->setEnabled(known);
        }
    });
    m_connections += exchange.display[item].bind(
        [label = Label1[item]](const std::string& text) { label->setText(fromUtf8(text)); });
}

void frmEQ_Set::wireCurve() {
    auto& exchange = m_logic.exchange();
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        m_connections += exchange.value[item].changed.connect([this](int) { showCurve(); });
        m_connections += exchange.known[item].changed.connect([this](bool) { showCurve(); });
    }
    m_connections += exchange.processorOn.changed.connect([this](bool) { showCurve(); });
    m_connections += exchange.other().values.changed.connect([this](const auto&) { showCurve(); });
    m_connections += m_logic.canWrite.bind([this](bool can) {
        for (QAction* action : m_setActions) action->setEnabled(can);
    });
    showCurve();
}

void frmEQ_Set::showCurve() {
    auto& exchange = m_logic.exchange();
    const auto name = [](bool on) { return on ? QStringLiteral("Processor ON") : QStringLiteral("Processor OFF"); };
    const bool on = exchange.processorOn;
    m_curve->show({exchange.shownValues(), name(on)}, {exchange.other().values, name(!on)});
}

void frmEQ_Set::showUnit(std::size_t item) {
    const auto unit = eq::unitText(eqItems[item], m_logic.exchange().value[item]);
    m_units[item]->setText(QString::fromLatin1(unit.data(), static_cast<qsizetype>(unit.size())));
    const bool off = eq::isOff(eqItems[item], m_logic.exchange().value[item]);
    VScroll1[item]->setAccessibleDescription(off ? m_units[item]->text() : QString());
}

void frmEQ_Set::showConnected(bool connected) {
    m_images->setCurrentWidget(connected ? imgConnected : imgNotConnected);
    m_portSwitch->showState();
    m_readAgain->setEnabled(connected);
    cmdReadAgain->setEnabled(connected);
}

void frmEQ_Set::showProcessor(bool on) {
    QPalette colours = Command1[0]->palette();
    if (on) {
        colours.setColor(QPalette::Button, QColor(0x00, 0xFF, 0x00));
        colours.setColor(QPalette::ButtonText, Qt::black);
    }
    Command1[1]->setPalette(colours);
    exchangeInPlace(Command1[on ? 0 : 1], Command1[on ? 1 : 0]);
}

bool frmEQ_Set::closeBox() {
    m_logic.closeBox();
    return true;
}

}  // namespace korvex
