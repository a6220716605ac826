#include <gtest/gtest.h>
#include <vector>

#include "fakes/ProgramBench.h"
#include "platform/SaveDialog.h"

namespace korvex {
namespace {

TEST(SaveDialog, AFailureIsToldAndAnotherNameAskedForUntilItIsSavedOrCancelled) {
    fakes::TemporaryFolder folder;
    fakes::FakeFileDialog dialog;
    std::vector<int> told;
    const auto save = [&] {
        return saveByDialog(dialog, {FileDialogRequest::Mode::Save, "", "", "/start", "mnu"}, "EX0011;\r\n",
                            [&](const RuntimeError& error) { told.push_back(error.number); });
    };
    const std::string gone = folder.file("gone/my.mnu");
    dialog.choose(gone);
    dialog.choose(folder.path());
    dialog.choose(folder.file("my.mnu"));
    const Saved saved = save();
    EXPECT_EQ(saved.file, folder.file("my.mnu"));
    EXPECT_FALSE(saved.failure);
    EXPECT_EQ(fakes::fileContent(folder.file("my.mnu")), "EX0011;\r\n");
    EXPECT_EQ(told, (std::vector{errors::PathNotFound, errors::PathFileAccess}));
    EXPECT_EQ(dialog.shown.at(0).start, "/start");
    EXPECT_EQ(dialog.shown.at(1).start, gone);

    dialog.choose(gone);
    dialog.cancel();
    EXPECT_TRUE(save().failure);
    dialog.cancel();
    const Saved cancelled = save();
    EXPECT_FALSE(cancelled.file || cancelled.failure);
}

}  // namespace
}  // namespace korvex
