#pragma once

#include <QDialog>
#include <string_view>

#include "cat/PortSettings.h"

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QGroupBox;

namespace korvex {

/// "RS-232 Port Settings", modal. Built after its logic has been loaded.
class frmProperties : public QDialog {
    Q_OBJECT

public:
    frmProperties(PortSettings& logic, QWidget* parent);

private:
    QGroupBox* makeSpeedFrame();
    QGroupBox* makeConnectionFrame();
    QGroupBox* makeChoice(const QString& title, const char* name, const QStringList& captions, QButtonGroup*& group);
    QWidget* makePortRow();
    QWidget* makeButtons();
    QComboBox* makeCombo(const char* name, const QString& meaning);
    void showLogic();
    void cmdOK_Click();

    PortSettings& m_logic;
    QComboBox* cboPort = nullptr;
    QComboBox* cboSpeed = nullptr;
    QComboBox* cboDataBits = nullptr;
    QComboBox* cboParity = nullptr;
    QComboBox* cboStopBits = nullptr;
    QButtonGroup* optFlow = nullptr;
    QButtonGroup* optEcho = nullptr;
};

}  // namespace korvex
