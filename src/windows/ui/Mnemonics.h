#pragma once

class QMenuBar;

namespace korvex {

/// Gives every menu and entry that has no letter of its own to be chosen by (Alt, then the letter) one that is free
/// among its neighbours: the menus now, their entries whenever the menu is opened. What is read stays as it is.
void giveMnemonics(QMenuBar& bar);

}  // namespace korvex
