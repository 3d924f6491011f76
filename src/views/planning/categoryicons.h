// The pictures of the four categories of measures.
#pragma once

#include <QIcon>

namespace categoryicons {

/// In the palette's ink; none for a category that the program does not know.
QIcon ofCategory(int category);

} // namespace categoryicons
