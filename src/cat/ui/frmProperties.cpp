#include "cat/ui/frmProperties.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/LineSettings.h"

namespace korvex {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

constexpr int deviceRole = Qt::UserRole + 1;
constexpr int portBoxWidth = 56;  // letters: an adapter's name and its serial number in two lines

/// Names of devices are long and have no blanks: they may go on in the next line at any of their joints.
QString breakable(QString text) {
    static const QRegularExpression joints(QStringLiteral("([/_-])"));
    return text.replace(joints, QStringLiteral("\\1\u200B"));
}

/// The open list says which device and adapter a number is; the closed one has only the number.
class PortDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QString device = index.data(deviceRole).toString();
        if (!device.isEmpty()) option->text += QStringLiteral("   ") + device;
    }
};

}  // namespace

frmProperties::frmProperties(PortSettings& logic, QWidget* parent) : QDialog(parent), m_logic(logic) {
    setObjectName(QStringLiteral("frmProperties"));
    setWindowTitle(QStringLiteral("RS-232 Port Settings"));
    fraSettings = new QGroupBox(QStringLiteral("Einstellungen"), this);
    fraSettings->setObjectName(QStringLiteral("fraSettings"));
    auto* inside = new QGridLayout(fraSettings);
    inside->addWidget(makeSpeedFrame(), 0, 0);
    inside->addWidget(
        makeChoice(QStringLiteral("&Echo"), "optEcho", {QStringLiteral("Off"), QStringLiteral("On")}, optEcho), 1, 0);
    inside->addWidget(makeChoice(QStringLiteral("&Protocol"), "optFlow",
                                 {QStringLiteral("Non"), QStringLiteral("Xon/Xoff"), QStringLiteral("RTS"),
                                  QStringLiteral("Xon/RTS")},
                                 optFlow),
                      0, 1, 2, 1);
    inside->addWidget(makeConnectionFrame(), 2, 0, 1, 2);
    inside->addWidget(makePortRow(), 3, 0, 1, 2);

    auto* column = new QVBoxLayout(this);
    column->addWidget(fraSettings);
    column->addWidget(makeSearchRow());
    column->addWidget(makeButtons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    fillPortList();
    showLogic();
    followSearch();
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

QComboBox* frmProperties::makeCombo(const char* name, const QString& meaning) {
    auto* combo = new QComboBox(this);
    combo->setObjectName(QLatin1String(name));
    combo->setAccessibleName(meaning);
    return combo;
}

QGroupBox* frmProperties::makeSpeedFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Max. Speed"), this);
    frame->setAccessibleName(frame->title());
    auto* layout = new QHBoxLayout(frame);
    cboSpeed = makeCombo("cboSpeed", QStringLiteral("Max. Speed"));
    for (const int speed : standardSpeeds()) cboSpeed->addItem(QString::number(speed));
    layout->addWidget(cboSpeed);
    return frame;
}

QGroupBox* frmProperties::makeConnectionFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Transfer Protocol"), this);
    frame->setObjectName(QStringLiteral("fraConnection"));
    frame->setAccessibleName(frame->title());
    auto* layout = new QFormLayout(frame);
    const auto add = [&](const QString& label, QComboBox*& combo, const char* name, const auto& choices) {
        combo = makeCombo(name, label.chopped(1));
        for (const auto choice : choices) combo->addItem(text(choice));
        layout->addRow(label, combo);
    };
    add(QStringLiteral("Databit:"), cboDataBits, "cboDataBits", PortSettings::dataBitsChoices);
    add(QStringLiteral("Parity:"), cboParity, "cboParity", PortSettings::parities);
    add(QStringLiteral("Stopbits:"), cboStopBits, "cboStopBits", PortSettings::stopBitsChoices);
    return frame;
}

QGroupBox* frmProperties::makeChoice(const QString& title, const char* name, const QStringList& captions,
                                     QButtonGroup*& group) {
    auto* frame = new QGroupBox(title, this);
    frame->setAccessibleName(QString(title).remove(QLatin1Char('&')));
    auto* layout = new QVBoxLayout(frame);
    group = new QButtonGroup(this);
    for (int index = 0; index < captions.size(); ++index) {
        auto* button = new QRadioButton(captions.at(index), frame);
        button->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index));
        button->setAccessibleName(captions.at(index));
        button->setAccessibleDescription(frame->accessibleName());
        group->addButton(button, index);
        layout->addWidget(button);
    }
    layout->addStretch();
    return frame;
}

QWidget* frmProperties::makePortRow() {
    auto* box = new QWidget(this);
    auto* layout = new QGridLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("RS-232 Port:"), box);
    cboPort = makeCombo("cboPort", QStringLiteral("RS-232 Port"));
    cboPort->setItemDelegate(new PortDelegate(cboPort));
    label->setBuddy(cboPort);
    lblDevice = new QLabel(box);
    lblDevice->setObjectName(QStringLiteral("lblDevice"));
    lblDevice->setAccessibleDescription(QStringLiteral("The device behind the chosen port"));
    lblDevice->setTextFormat(Qt::PlainText);
    lblDevice->setWordWrap(true);
    lblDevice->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblDevice->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblDevice->setFixedWidth(fontMetrics().averageCharWidth() * portBoxWidth);
    lblDevice->setFixedHeight(fontMetrics().lineSpacing() * 4);
    layout->addWidget(label, 0, 0);
    layout->addWidget(cboPort, 0, 1);
    layout->addWidget(lblDevice, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    return box;
}

QWidget* frmProperties::makeSearchRow() {
    auto* box = new QWidget(this);
    auto* layout = new QGridLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    cmdFind = new QPushButton(box);
    cmdFind->setObjectName(QStringLiteral("cmdFind"));
    cmdFind->setAutoDefault(false);
    connect(
        cmdFind, &QPushButton::clicked, this, [this] { cmdFind_Click(); }, Qt::QueuedConnection);
    prgSearch = new QProgressBar(box);
    prgSearch->setObjectName(QStringLiteral("prgSearch"));
    prgSearch->setAccessibleName(QStringLiteral("Progress of the search"));
    prgSearch->setTextVisible(false);
    txtSearch = new QPlainTextEdit(box);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setAccessibleName(QStringLiteral("What the search for the radio tells"));
    txtSearch->setReadOnly(true);
    txtSearch->setTabChangesFocus(true);
    txtSearch->setFixedHeight(fontMetrics().lineSpacing() * 5);
    txtSearch->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    txtSearch->setPlainText(QStringLiteral(
        "\"Find my Radio\" asks every free port for the radio's model, at each speed that the radio knows. "
        "Nothing else is sent."));
    layout->addWidget(cmdFind, 0, 0);
    layout->addWidget(prgSearch, 0, 1);
    layout->addWidget(txtSearch, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    return box;
}

QWidget* frmProperties::makeButtons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    cmdOK = new QPushButton(QStringLiteral("OK"), row);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(
        cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); }, Qt::QueuedConnection);
    auto* cancel = new QPushButton(QStringLiteral("Exit"), row);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &frmProperties::reject);
    layout->addWidget(cmdOK);
    layout->addWidget(cancel);
    return row;
}

void frmProperties::fillPortList() {
    cboPort->clear();
    for (const auto& entry : m_logic.cboPort) {
        const QString device = (entry.missing ? QStringLiteral("missing: ") : QString()) + text(entry.device);
        cboPort->addItem(QString::number(entry.number), entry.number);
        const int row = cboPort->count() - 1;
        cboPort->setItemData(row, device, deviceRole);
        cboPort->setItemData(row, device, Qt::ToolTipRole);
        cboPort->setItemData(row, device, Qt::AccessibleDescriptionRole);
    }
    const int widest = screen()->availableGeometry().width() / 2;
    cboPort->view()->setTextElideMode(Qt::ElideMiddle);
    cboPort->view()->setMinimumWidth(
        std::min(cboPort->view()->sizeHintForColumn(0) + 2 * cboPort->iconSize().width(), widest));
}

void frmProperties::showDevice() {
    const QString device = cboPort->currentData(deviceRole).toString();
    cboPort->setToolTip(device);
    cboPort->setAccessibleDescription(device);
    const QString shown = cboPort->count() > 0 ? device : QStringLiteral("There is no serial port that can be opened.");
    lblDevice->setText(breakable(shown));
    lblDevice->setAccessibleName(shown);
    lblDevice->setToolTip(device);
}

void frmProperties::showLogic() {
    cboPort->setCurrentIndex(m_logic.selectedPort ? static_cast<int>(*m_logic.selectedPort) : -1);
    showDevice();
    cboSpeed->setCurrentText(text(m_logic.speed));
    cboDataBits->setCurrentText(text(m_logic.dataBits));
    cboStopBits->setCurrentText(text(m_logic.stopBits));
    cboParity->setCurrentIndex(m_logic.parity ? static_cast<int>(*m_logic.parity) : -1);
    if (auto* flow = optFlow->button(m_logic.handshaking)) flow->setChecked(true);
    optEcho->button(m_logic.echo ? 1 : 0)->setChecked(true);
}

void frmProperties::followSearch() {
    connect(cboPort, &QComboBox::currentIndexChanged, this, [this] { showDevice(); });
    connect(optFlow, &QButtonGroup::idClicked, this, [this](int index) { m_logic.optFlow_Click(index); });
    connect(optEcho, &QButtonGroup::idClicked, this, [this](int index) { m_logic.optEcho_Click(index); });
    RadioSearch& search = m_logic.search;
    m_connections +=
        search.status.changed.connect([this](const std::string& status) { txtSearch->setPlainText(text(status)); });
    m_connections += search.tries.bind([this](int tries) { prgSearch->setRange(0, std::max(tries, 1)); });
    m_connections += search.tried.bind([this](int tried) { prgSearch->setValue(tried); });
    m_connections += search.running.bind([this](bool running) { showSearching(running); });
    m_connections += m_logic.radioFound.connect([this] {
        fillPortList();
        showLogic();
        cmdOK->setFocus();
    });
}

void frmProperties::showSearching(bool searching) {
    cmdFind->setText(searching ? QStringLiteral("Cancel") : QStringLiteral("&Find my Radio"));
    cmdFind->setAccessibleName(searching ? QStringLiteral("Cancel the search for the radio")
                                         : QStringLiteral("Find my Radio"));
    prgSearch->setVisible(searching);
    fraSettings->setEnabled(!searching);
    cmdOK->setEnabled(!searching);
}

void frmProperties::readControls() {
    const auto chosen = [](const QComboBox* combo) -> std::optional<std::size_t> {
        if (combo->currentIndex() < 0) return std::nullopt;
        return static_cast<std::size_t>(combo->currentIndex());
    };
    m_logic.selectedPort = chosen(cboPort);
    m_logic.parity = chosen(cboParity);
    m_logic.speed = cboSpeed->currentText().toStdString();
    m_logic.dataBits = cboDataBits->currentText().toStdString();
    m_logic.stopBits = cboStopBits->currentText().toStdString();
    // The group knows what is checked, by whatever way it came to be.
    m_logic.optFlow_Click(optFlow->checkedId());
    m_logic.optEcho_Click(optEcho->checkedId());
}

void frmProperties::cmdFind_Click() {
    readControls();
    m_logic.cmdFind_Click();
}

void frmProperties::cmdOK_Click() {
    readControls();
    if (m_logic.cmdOK_Click()) accept();
}

void frmProperties::reject() {
    if (m_logic.search.running) return m_logic.search.cancel();
    QDialog::reject();
}

}  // namespace korvex
