#include "windows/ui/ConnectPicture.h"

#include <QIcon>

namespace korvex {

ConnectPicture::ConnectPicture(CatLink& link, QWidget* parent) : QToolButton(parent) {
    setToolTip(QStringLiteral("open/close Comm-Port"));
    setAutoRaise(true);
    setIconSize({48, 24});
    connect(
        this, &QToolButton::clicked, this, [&link] { link.togglePort(); }, Qt::QueuedConnection);
    m_binding = link.indicators().open.bind([this](bool open) { showState(open); });
}

void ConnectPicture::showState(bool open) {
    setObjectName(open ? QStringLiteral("imgConnected") : QStringLiteral("imgNotConnected"));
    setIcon(QIcon(open ? QStringLiteral(":/images/connected.svg") : QStringLiteral(":/images/not-connected.svg")));
    setAccessibleName(open ? QStringLiteral("Connected, click to close the Comm-Port")
                           : QStringLiteral("Not connected, click to open the Comm-Port"));
}

}  // namespace korvex
