// Looks a window over as a person would who uses it without a mouse, by ear, or with large text.
#pragma once

#include <QStringList>

class QWidget;

namespace bramblet {

/// What is wrong with a window of ours, in words, each with the control's name; empty when nothing
/// is. Looked for in what is visible: controls without a name or role for screen readers, without a
/// tip, or that Tab does not leave or reach; letters that two of them share; texts that are cut
/// off, or hard to read on their ground. Qt's own dialogs are taken as they are.
QStringList shortcomingsOf(const QWidget& window);

}  // namespace bramblet
