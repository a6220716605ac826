#include "app/ui/frmAbout.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "app/About.h"
#include "platform/SettingsStore.h"
#include "windows/ui/SvgArt.h"

namespace korvex {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QLabel* label(const char* objectName, std::string_view content, QWidget* parent) {
    auto* made = new QLabel(text(content), parent);
    made->setObjectName(QLatin1String(objectName));
    made->setTextFormat(Qt::PlainText);
    made->setWordWrap(true);
    return made;
}

QLabel* titleLabel(QWidget* parent) {
    QLabel* title = label("lblTitle", applicationName, parent);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    title->setFont(large);
    return title;
}

/// As wide as the first two tools, so that the lines break between the names.
QLabel* descriptionLabel(QWidget* parent) {
    QLabel* description = label("lblDescription", about::description, parent);
    const auto third = about::description.find("Menu Manager");
    const QString firstTwo = text(about::description.substr(0, third)).trimmed();
    description->setFixedWidth(description->fontMetrics().horizontalAdvance(firstTwo) + 6);
    return description;
}

QPushButton* button(const char* objectName, const char* caption, QWidget* parent) {
    auto* made = new QPushButton(QLatin1String(caption), parent);
    made->setObjectName(QLatin1String(objectName));
    return made;
}

}  // namespace

frmAbout::frmAbout(QWidget* owner, const std::filesystem::path& programFile, Shell& shell, MsgBox& msgBox)
    : QDialog(owner) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(text(applicationName));

    auto* picture = new SvgPicture(QStringLiteral(":/images/korvex.svg"), this);
    picture->setObjectName(QStringLiteral("picIcon"));
    picture->setAccessibleName(QStringLiteral("Program icon"));
    picture->setFixedSize(72, 72);
    auto* line = new QFrame(this);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* ok = button("cmdOK", "OK", this);
    ok->setDefault(true);
    auto* systemInfo = button("cmdSysInfo", "&System-Info...", this);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(20, 20, 20, 16);
    grid->setHorizontalSpacing(20);
    grid->addWidget(picture, 0, 0, 4, 1, Qt::AlignTop);
    grid->addWidget(titleLabel(this), 0, 1, 1, 2);
    grid->addWidget(label("lblVersion", about::versionLabel(), this), 1, 1, 1, 2);
    grid->addWidget(label("lblBuilt", about::builtLabel(programFile), this), 2, 1, 1, 2);
    grid->addWidget(descriptionLabel(this), 3, 1, 1, 2);
    grid->addWidget(line, 4, 0, 1, 3);
    grid->addWidget(label("lblDisclaimer", about::disclaimer, this), 5, 0, 2, 2);
    grid->addWidget(ok, 5, 2);
    grid->addWidget(systemInfo, 6, 2);
    grid->setColumnStretch(1, 1);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    const auto showSystemInfo = [&shell, &msgBox] { about::startSystemInfo(shell, msgBox); };
    connect(systemInfo, &QPushButton::clicked, this, showSystemInfo, Qt::QueuedConnection);
}

void showAbout(QWidget* owner, const std::filesystem::path& programFile, Shell& shell, MsgBox& msgBox) {
    auto* box = new frmAbout(owner, programFile, shell, msgBox);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::ApplicationModal);
    box->show();
}

}  // namespace korvex
