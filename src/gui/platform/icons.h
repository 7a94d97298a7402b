// The program's own icons: line drawings in the colour of the text, sharp at every scale.
#pragma once

#include <QIcon>

namespace bramblet {

enum class Drawing {
    New,
    Save,
    Copy,
    Clear,
    TotalUp,
    Calendar,
    Store,
    Delete,
    Help,
    Folder,
    Previous,
    Next,
    Up,
    Lists,
    View,
    Print,
    Preview,
    Mail,
    Settings,
    Close
};

/// The signs of message boxes: white on a coloured disc.
enum class Sign { Information, Question, Warning, Critical };
QIcon icon(Sign sign);

/// The drawing in the current palette's text colours, greyed when disabled.
QIcon icon(Drawing drawing);

}  // namespace bramblet
