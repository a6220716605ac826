#include "platform/qtwidgets/QtFileDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include "platform/DialogStart.h"
#include "platform/qtwidgets/QtMsgBox.h"

namespace korvex {

namespace {

/// "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*" as the library wants it. A file without a dot is a file, too.
QStringList nameFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1String("*.*"), QLatin1String("*")).replace(QLatin1Char(';'), QLatin1Char(' '));
        const QString caption = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
        filters.append(caption + QLatin1String(" (") + patterns + QLatin1Char(')'));
    }
    return filters;
}

void prepare(QFileDialog& dialog, const FileDialogRequest& request) {
    using Mode = FileDialogRequest::Mode;
    const bool saving = request.mode == Mode::Save;
    const bool folder = request.mode == Mode::Folder;
    dialog.setWindowTitle(QString::fromStdString(request.title));
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : folder ? QFileDialog::Directory : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::ShowDirsOnly, folder);
    if (!folder) dialog.setNameFilters(nameFilters(request.filter));
    dialog.setDefaultSuffix(QString::fromStdString(request.defaultExtension));
    const auto start = dialogStart(request);
    if (!start.folder.empty()) dialog.setDirectory(QString::fromStdString(start.folder));
    if (!start.fileName.empty()) dialog.selectFile(QString::fromStdString(start.fileName));
}

bool mayReplace(const std::string& file) {
    const QFileInfo info(QString::fromStdString(file));
    if (!info.exists()) return true;
    const std::string text = info.fileName().toStdString() + " already exists.\nDo you want to replace it?";
    return QtMsgBox().show({text, {}, MsgIcon::Exclamation, MsgButtons::YesNo}) == MsgAnswer::Yes;
}

}  // namespace

std::optional<std::string> QtFileDialog::show(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, request);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const std::string chosen = dialog.selectedFiles().constFirst().toStdString();
        if (request.mode != FileDialogRequest::Mode::Save) return chosen;
        const std::string file = withDefaultExtension(chosen, request.defaultExtension);
        if (mayReplace(file)) return file;
        dialog.selectFile(QString::fromStdString(file));
    }
    return std::nullopt;
}

}  // namespace korvex
