#pragma once

#include <QMainWindow>
#include <string>
#include <vector>

#include "base/Signal.h"
#include "windows/WindowGeometry.h"

class QCloseEvent;
class QDragEnterEvent;
class QDropEvent;

namespace korvex {

/// What every window of the program has in common: it opens where it was left, and stores its place when it goes.
class ToolWindow : public QMainWindow {
    Q_OBJECT

public:
    ToolWindow(const WindowGeometry& geometry, SettingsStore& settings);

    /// Writes the place to the store; not while the window is minimized.
    void storePlace();

    /// The program ends: what the window keeps is stored.
    virtual void unload() { storePlace(); }

    /// Makes the window visible at its normal size, in front of the others and with the keyboard.
    void showRestored();
    /// Makes it visible without taking the keyboard from the window that has it. One that is visible stays as it is.
    void showBehind();

    /// Files were dropped on the window; their names in UTF-8.
    Signal<const std::vector<std::string>&> filesDropped;

    static int pixels(int twips) { return pixelsFromTwips(twips); }
    static int twips(int pixels) { return twipsFromPixels(pixels); }

protected:
    /// Moves and sizes the window as it was left. Call it when the window is built, before it is shown.
    void loadPlace();
    /// No earlier run has left anything about its place.
    bool isNew() const { return !m_geometry.isStored(m_settings); }

    /// As wide as what is in it asks for, up to what the screen has: for a window that nobody has placed yet.
    void growTo(int width);

    /// The close box. Returning false keeps the window as it is; unless overridden the place is stored and the window
    /// goes out of sight.
    virtual bool closeBox();

    void closeEvent(QCloseEvent* event) final;
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    WindowPlace presentPlace() const;
    void goTo(const WindowPlace& place);

    WindowGeometry m_geometry;
    SettingsStore& m_settings;
    WindowPlace m_loaded;
    bool m_wasPlaced = false;  // by the user, in an earlier run
    bool m_fitted = false;
};

}  // namespace korvex
