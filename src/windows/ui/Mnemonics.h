#pragma once

class QMenuBar;

namespace korvex {

/// Gives every menu and entry that has no letter of its own to be chosen by (Alt, then the letter) one that is free
/// among its neighbours. What is read stays as it is.
void giveMnemonics(QMenuBar& bar);

}  // namespace korvex
