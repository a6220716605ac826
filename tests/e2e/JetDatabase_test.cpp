#include <gtest/gtest.h>
#include <string>

#include "Shell.h"
#include "fakes/ProgramBench.h"

namespace korvex {
namespace {

constexpr const char* tableName = "'Erste Tabelle'";

/// A desktop database of our own making, read by the real mdb-export where it is installed.
class JetDatabase : public testing::Test {
protected:
    void SetUp() override {
        if (!hasKorvexctl()) GTEST_SKIP();
        if (run("mdb-export --version").code != 0) GTEST_SKIP() << "mdbtools are not installed";
    }
    /// The titles and 149 items, with settings in two columns.
    std::string make(const std::string& name, const std::string& more, const std::string& table = tableName) {
        std::string records = "1\tMenu\tGroup\tName\tDescription\tV\tR\tD\tContest\tS2\tS3\tS4\tN\n";
        for (int item = 1; item <= 149; ++item) {
            const std::string number = std::to_string(item);
            records += std::to_string(item + 1) + "\t" + std::string(3 - number.size(), '0') + number +
                       "\tG\tN\xC3\xA4me " + number + "\tsays \"x\", \xE2\x82\xAC\t\t\t\t0" + number + "\t\t\t\t\n";
        }
        fakes::writeFile(folder.file("records.tsv"), records);
        const std::string file = folder.file(name);
        EXPECT_EQ(run("cd " + folder.path() + " && python3 " SOURCE_DIR "/tests/e2e/jet_file.py " + file + " " + table +
                      " records.tsv " + more)
                      .output,
                  "");
        return file;
    }
    Ended import(const std::string& file, const std::string& before = "") {
        return run("cd " + folder.path() + " && " + before + korvexctl + " description import " + file);
    }
    std::string table() {
        EXPECT_EQ(run(korvexctl + " description export " + folder.file("out.tsv")).output, "");
        return fakes::fileContent(folder.file("out.tsv"));
    }

    const fakes::TemporaryFolder folder;
    const std::string database = folder.file("own.mdb");
    const std::string korvexctl = BINARY_DIR "/korvexctl --database " + database;
};

TEST_F(JetDatabase, NamesDescriptionsAndSettingsComeIn) {
    make("-old.mdb", "p7secret");  // its name is no option, and nobody needs its password
    const Ended taken = import("-- -old.mdb");
    EXPECT_EQ(taken.code, 0);
    EXPECT_NE(taken.output.find("150 rows taken"), std::string::npos) << taken.output;
    EXPECT_NE(table().find("\n43\t042\tG\tN\xC3\xA4me 42\tsays \"x\", \xE2\x82\xAC\t\t\t\t042\t"), std::string::npos);

    // Settings that are there stay, unless it is said that they go.
    std::string changed = table();
    changed.replace(changed.find("\t042\t\t\t\t"), 5, "\t043\t");
    fakes::writeFile(folder.file("changed.tsv"), changed);
    EXPECT_EQ(run(korvexctl + " --with-settings description import " + folder.file("changed.tsv")).code, 0);
    EXPECT_NE(import("-- -old.mdb").output.find("nothing in it is new"), std::string::npos);
    EXPECT_NE(import("--with-settings -- -old.mdb").output.find("1 cell changed"), std::string::npos);
    EXPECT_NE(import(make("new.accdb", "'' newer")).output.find("nothing in it is new"), std::string::npos);
    // One of Korvex's own is taken in the same way.
    EXPECT_NE(import(database).output.find("nothing in it is new"), std::string::npos);
}

TEST_F(JetDatabase, WhatCannotBeReadIsToldAndChangesNothing) {
    import(make("good.mdb", ""));
    const std::string before = table();
    for (const auto& [file, why] : {std::pair{make("torn.mdb", "'' torn"), "cannot be read: offset"},
                                    {make("noise.mdb", "'' noise"), "cannot be read: "},
                                    {make("foreign.mdb", "", "Kunden"), "does not exist in this database"}}) {
        const Ended ended = import(file);
        EXPECT_EQ(ended.code, 5);
        EXPECT_NE(ended.output.find(why), std::string::npos) << file << ": " << ended.output;
    }
    fakes::writeFile(folder.file("head.mdb"), std::string("\0\1\0\0Standard ACE DB\0", 20));
    EXPECT_NE(import("head.mdb").output.find("a copy without one can be read"), std::string::npos);
    const Ended missing = import("good.mdb", "PATH=/nowhere ");
    EXPECT_NE(missing.output.find("Please install the package mdbtools"), std::string::npos) << missing.output;

    // A program that says too much, that never ends, that closes its output and stays.
    for (const auto& [script, why] : {std::pair{"yes", "printed too much"}, {"kill -9 $$", "cannot be read\n"}}) {
        fakes::writeFile(folder.file("mdb-export"), std::string("#!/bin/sh\nPATH=/usr/bin:/bin\n") + script + "\n");
        run("chmod +x " + folder.file("mdb-export"));
        const Ended ended = import("good.mdb", "PATH=" + folder.path() + " ");
        EXPECT_NE(ended.output.find(why), std::string::npos) << ended.output;
    }
    EXPECT_EQ(table(), before);
}

}  // namespace
}  // namespace korvex
