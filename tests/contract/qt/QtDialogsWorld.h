#pragma once

#include <memory>

#include "tests/contract/DialogsContract.h"

class QWidget;

namespace tilwin::contract {

/// A user of the dialogs of this process, with real mouse and keyboard.
[[nodiscard]] std::unique_ptr<DialogsWorld> makeQtDialogs();

/// The window of the dialog in front; null if none is open.
[[nodiscard]] QWidget* frontDialogWindow();

}  // namespace tilwin::contract
