#include "platform/SaveDialog.h"

#include "platform/TextFile.h"

namespace korvex {

Saved saveByDialog(FileDialog& dialog, FileDialogRequest request, std::string_view content,
                   const std::function<void(const RuntimeError&)>& tell,
                   const std::function<bool(const std::string& file)>& mayReplace) {
    Saved saved;
    while (const auto file = dialog.show(request)) {
        if (mayReplace && !mayReplace(*file)) return {};
        saved.failure = textfile::write(*file, content);
        if (!saved.failure) {
            saved.file = *file;
            break;
        }
        tell(*saved.failure);
        request.start = *file;  // its folder may be the right one
    }
    return saved;
}

}  // namespace korvex
