#pragma once

#include <QDialog>
#include <string_view>

#include "cat/PortSettings.h"

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace korvex {

/// "RS-232 Port Settings", modal. Built after its logic has been loaded.
class frmProperties : public QDialog {
    Q_OBJECT

public:
    frmProperties(PortSettings& logic, QWidget* parent);
    /// While a search for the radio runs, Escape and the close box stop that first.
    void reject() override;

private:
    QGroupBox* makeSpeedFrame();
    QGroupBox* makeConnectionFrame();
    QGroupBox* makeChoice(const QString& title, const char* name, const QStringList& captions, QButtonGroup*& group);
    QWidget* makePortRow();
    QWidget* makeSearchRow();
    void followSearch();
    void showSearching(bool searching);
    void fillPortList();
    void showDevice();
    QWidget* makeButtons();
    QComboBox* makeCombo(const char* name, const QString& meaning);
    void showLogic();
    void cmdFind_Click();
    void readControls();
    void cmdOK_Click();

    PortSettings& m_logic;
    QComboBox* cboPort = nullptr;
    QComboBox* cboSpeed = nullptr;
    QComboBox* cboDataBits = nullptr;
    QComboBox* cboParity = nullptr;
    QComboBox* cboStopBits = nullptr;
    QButtonGroup* optFlow = nullptr;
    QButtonGroup* optEcho = nullptr;
    QLabel* lblDevice = nullptr;
    QGroupBox* fraSettings = nullptr;
    QPushButton* cmdFind = nullptr;
    QPushButton* cmdOK = nullptr;
    QProgressBar* prgSearch = nullptr;
    QPlainTextEdit* txtSearch = nullptr;
    Connections m_connections;
};

}  // namespace korvex
