// The settings dialog.
#pragma once

#include "core/settings/settings_editor.h"

#include <functional>

class QWidget;

namespace bramblet {

/// Shows the dialog until it is closed. `rewrite` writes the document in the viewer again with the
/// settings as they are now; it is empty when no order is being viewed.
void showConfigDialog(SettingsEditor& editor, const FileSystem& files,
                      const std::filesystem::path& pictureFolder,
                      const std::function<void()>& rewrite, QWidget* parent);

}  // namespace bramblet
