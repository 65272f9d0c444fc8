// A document the system could not open shown in a window of our own: the
// help pages and the ReadMe stay in reach on a desktop without a browser.
#pragma once

#include <QUrl>

namespace varkesh {

// A local page or text file in a window that closes itself; a folder, or a
// file that cannot be read, is named with where it lies.
void ShowDocumentWindow(const QUrl& document);

}  // namespace varkesh
