#include "cat/ui/frmProperties.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/LineSettings.h"

namespace korvex {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

frmProperties::frmProperties(PortSettings& logic, QWidget* parent) : QDialog(parent), m_logic(logic) {
    setObjectName(QStringLiteral("frmProperties"));
    setWindowTitle(QStringLiteral("RS-232 Port Settings"));
    auto* frame = new QGroupBox(QStringLiteral("Einstellungen"), this);
    frame->setObjectName(QStringLiteral("fraSettings"));
    auto* inside = new QGridLayout(frame);
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
    column->addWidget(frame);
    column->addWidget(makeButtons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    showLogic();
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
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("RS-232 Port:"), row);
    cboPort = makeCombo("cboPort", QStringLiteral("RS-232 Port"));
    label->setBuddy(cboPort);
    layout->addWidget(label);
    layout->addWidget(cboPort, 1);
    return row;
}

QWidget* frmProperties::makeButtons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    auto* ok = new QPushButton(QStringLiteral("OK"), row);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(
        ok, &QPushButton::clicked, this, [this] { cmdOK_Click(); }, Qt::QueuedConnection);
    auto* cancel = new QPushButton(QStringLiteral("Exit"), row);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    layout->addWidget(ok);
    layout->addWidget(cancel);
    return row;
}

void frmProperties::showLogic() {
    for (const auto& entry : m_logic.cboPort) {
        cboPort->addItem(QString::number(entry.number), entry.number);
        cboPort->setItemData(cboPort->count() - 1, text(entry.toolTip), Qt::ToolTipRole);
    }
    const auto showToolTip = [this] { cboPort->setToolTip(cboPort->currentData(Qt::ToolTipRole).toString()); };
    connect(cboPort, &QComboBox::currentIndexChanged, this, showToolTip);
    cboPort->setCurrentIndex(m_logic.selectedPort ? static_cast<int>(*m_logic.selectedPort) : -1);
    showToolTip();
    cboSpeed->setCurrentText(text(m_logic.speed));
    cboDataBits->setCurrentText(text(m_logic.dataBits));
    cboStopBits->setCurrentText(text(m_logic.stopBits));
    cboParity->setCurrentIndex(m_logic.parity ? static_cast<int>(*m_logic.parity) : -1);
    if (auto* flow = optFlow->button(m_logic.handshaking)) flow->setChecked(true);
    optEcho->button(m_logic.echo ? 1 : 0)->setChecked(true);
    connect(optFlow, &QButtonGroup::idClicked, this, [this](int index) { m_logic.optFlow_Click(index); });
    connect(optEcho, &QButtonGroup::idClicked, this, [this](int index) { m_logic.optEcho_Click(index); });
}

void frmProperties::cmdOK_Click() {
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
    if (m_logic.cmdOK_Click()) accept();
}

}  // namespace korvex
