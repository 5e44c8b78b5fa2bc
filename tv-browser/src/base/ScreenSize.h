/** The size of the television's screen. */
#ifndef SCREENSIZE_H
#define SCREENSIZE_H

#include <QSize>

namespace tv {

/** In pixels; of the page's viewport too. A page's `fullScreen` object has this size. */
inline constexpr QSize tvScreenSize(1280, 720);

} // namespace tv

#endif
