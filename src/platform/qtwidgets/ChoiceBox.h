#pragma once

#include <QComboBox>
#include <QElapsedTimer>

namespace korvex {

/// The values that can be chosen in a cell. Keys choose without leaving it: "2", "us" and "USB" all come to "2 USB". A
/// choice in the opened list is final.
class ChoiceBox : public QComboBox {
    Q_OBJECT

public:
    ChoiceBox(const QStringList& choices, QWidget* parent);

    /// The choice that is `text`, or has it as its first word; none where there is no such.
    void show(const QString& text);

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    void chosenInList();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    int choiceThatBegins(const QString& typed) const;

    QString m_typed;
    QElapsedTimer m_sinceTyped;
    bool m_open = false;
};

}  // namespace korvex
