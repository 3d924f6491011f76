// A light and a dark palette that look the same on every machine.
#pragma once

#include <QPalette>

/// The two palettes that pictures and contrast checks use with the Fusion style.
namespace palettes {

inline QPalette make(QColor window, QColor base, QColor button, QColor text, QColor quiet, QColor accent)
{
    QPalette palette(button, window);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::PlaceholderText, quiet);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, quiet);
    return palette;
}

inline QPalette light()
{
    return make(0xf4f5f6, 0xffffff, 0xfafbfb, 0x232629, 0x5f666c, 0x2d6da8);
}

inline QPalette dark()
{
    return make(0x24272b, 0x1a1d20, 0x30353a, 0xeceff1, 0x9aa3ab, 0x3b7fbf);
}

} // namespace palettes
