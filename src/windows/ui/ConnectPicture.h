#pragma once

#include <QToolButton>

#include "cat/CatLink.h"

namespace korvex {

/// The connect pictures, two in one place: the one in front shows the port's state, a click toggles the port. The
/// object name follows the picture in front, `imgConnected` or `imgNotConnected`.
class ConnectPicture : public QToolButton {
    Q_OBJECT

public:
    explicit ConnectPicture(CatLink& link, QWidget* parent = nullptr);

private:
    void showState(bool open);

    Connection m_binding;
};

}  // namespace korvex
