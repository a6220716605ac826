#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

#include "app/ui/ToolWindow.h"
#include "fakes/FakeDialogs.h"

namespace korvex {
namespace {

struct Window : ToolWindow {
    Window(const WindowGeometry& rule, SettingsStore& settings) : ToolWindow(rule, settings) { loadPlace(); }
};

TEST(ToolWindow, WhatWasNotTouchedKeepsItsTwips) {
    fakes::FakeSettings settings;
    {
        Window window(geometry::terminal, settings);
        window.show();
        EXPECT_EQ(window.geometry().size(), QSize(433, 567));
        window.close();
    }
    EXPECT_EQ(settings.values["Settings/TermWidth"], "6500");  // no whole number of pixels
    EXPECT_EQ(settings.values["Settings/TermLeft"], "1000");
    {
        Window window(geometry::terminal, settings);
        window.resize(500, 567);
        window.close();
    }
    EXPECT_EQ(settings.values["Settings/TermWidth"], "7500");
    EXPECT_EQ(settings.values["Settings/TermHeight"], "8500");
}

TEST(ToolWindow, OpensInSightWhereverItWasStored) {
    fakes::FakeSettings settings;
    settings.values = {
        {"Settings/TermLeft", "400000"}, {"Settings/TermTop", "400000"}, {"Settings/TermWidth", "470000"}};
    const Window window(geometry::terminal, settings);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(window.geometry()));
}

TEST(ToolWindow, AMaximizedWindowStoresItsNormalPlace) {
    fakes::FakeSettings settings;
    Window window(geometry::terminal, settings);
    window.show();
    window.showMaximized();
    window.close();
    EXPECT_EQ(settings.values["Settings/TermWidth"], "6500");
    EXPECT_EQ(settings.values["Settings/TermTop"], "1000");
    window.showRestored();
    EXPECT_FALSE(window.isMaximized());
    EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace korvex
