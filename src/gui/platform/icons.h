// The program's own icons: line drawings in the colour of the text, sharp at every scale.
#pragma once

#include <QIcon>
#include <QStyle>

namespace bramblet {

/// Strokes on a 16 by 16 grid: "M x y" moves, "L x y" draws a line, "Q x y x y" a curve with one
/// control point, "O x y r" a circle.
struct Drawing {
    const char* strokes;

    static const Drawing New, Save, Copy, Clear, TotalUp, Calendar, Store, Delete, Help, Previous,
        Next, Up, Lists, View, Print, Preview, Mail, Settings, Close, Requisition, Received;
};

/// The drawing in the current palette's text colours, greyed when disabled.
QIcon icon(Drawing drawing);

/// A message box's sign, white on a coloured disc; null when `which` is something else.
QIcon signIcon(QStyle::StandardPixmap which);

}  // namespace bramblet
