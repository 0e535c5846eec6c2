// Our icons: outlines in the text colour of the palette in use, drawn from SVG at whatever size is asked for.
#pragma once

#include <QIcon>

#include <string>

namespace quillon::desktop {

// `name`: a file of icons/ without its ending; a null icon for an unknown one.
QIcon IconOf(const std::string& name);

} // namespace quillon::desktop
