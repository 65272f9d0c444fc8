// Where the game's dialogs open: over the middle of the main window.
#pragma once

class QWidget;

namespace varkesh {

// Left is the owner's left plus half its width less half the dialog's width,
// each half a whole number; top likewise. Without an owner nothing moves.
void CentreOnOwner(QWidget& dialog, const QWidget* owner);

}  // namespace varkesh
