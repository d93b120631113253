// The layout of dialogs that make a file or sheets: what is chosen at the left, beside it a preview that grows.
#pragma once

#include <QDialog>
#include <QVBoxLayout>

namespace pistaro {

/// Lays a dialog out: choices at the left as wide as they need, the preview in all other room, below both the buttons.
/// The dialog begins at a size at which the preview can be read and can be made larger, or smaller until something
/// would be cut.
void LayOutBesidePreview(QDialog& dialog, QLayout* choices, QLayout* preview, QLayout* buttons);

} // namespace pistaro
