#include "platform/qtwidgets/QtFileDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include "platform/DialogStart.h"
#include "platform/qtwidgets/QtMsgBox.h"

namespace korvex {

namespace {

/// "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*" as the library wants it: each caption, then the patterns that it
/// leaves away when it shows the caption. A file without a dot is a file, too.
QStringList nameFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1String("*.*"), QLatin1String("*")).replace(QLatin1Char(';'), QLatin1Char(' '));
        filters.append(parts[i] + QLatin1String(" (") + patterns + QLatin1Char(')'));
    }
    return filters;
}

void prepare(QFileDialog& dialog, const FileDialogRequest& request) {
    using Mode = FileDialogRequest::Mode;
    const bool saving = request.mode == Mode::Save;
    const bool folder = request.mode == Mode::Folder;
    if (!request.title.empty()) dialog.setWindowTitle(QString::fromStdString(request.title));
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Also for opening: that a file is not there is told by who asked for it, in its own words.
    dialog.setFileMode(folder ? QFileDialog::Directory : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::ShowDirsOnly, folder);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!folder) dialog.setNameFilters(nameFilters(request.filter));
    const auto start = dialogStart(request);
    if (!start.folder.empty()) dialog.setDirectory(QString::fromStdString(start.folder));
    if (!start.fileName.empty()) dialog.selectFile(QString::fromStdString(start.fileName));
}

bool exists(const std::string& file) {
    return QFileInfo::exists(QString::fromStdString(file));
}

bool mayReplace(const std::string& file) {
    if (!exists(file)) return true;
    const std::string text = QFileInfo(QString::fromStdString(file)).fileName().toStdString() +
                             " already exists.\nDo you want to replace it?";
    return QtMsgBox().show({text, {}, MsgIcon::Exclamation, MsgButtons::YesNoCareful}) == MsgAnswer::Yes;
}

}  // namespace

std::optional<std::string> QtFileDialog::show(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, request);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const std::string chosen = dialog.selectedFiles().constFirst().toStdString();
        if (request.mode == FileDialogRequest::Mode::Folder) return chosen;
        const std::string file = withDefaultExtension(chosen, request.defaultExtension);
        if (request.mode == FileDialogRequest::Mode::Open) return exists(chosen) || !exists(file) ? chosen : file;
        if (mayReplace(file)) return file;
        dialog.selectFile(QString::fromStdString(file));
    }
    return std::nullopt;
}

}  // namespace korvex
