/** The component records, which the framework shares with the media-player adaptation layer. */
#ifndef AVCOMPONENT_H
#define AVCOMPONENT_H

#include "medialib.h"

#endif
