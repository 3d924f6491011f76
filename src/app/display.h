// Whether a window can be opened at all.
#pragma once

/// True when a display is named and answers. Asked before the toolkit is, as that ends the program when it
/// finds none.
bool hasDisplay();
