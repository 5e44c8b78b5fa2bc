/** Sets of remote control keys, of which an application chooses those that it receives (OIPF DAE 7.2.5). */
#ifndef KEYSET_H
#define KEYSET_H

namespace tv {

/** The bits of a page's key set. */
enum Keyset {
    KEYSET_RED = 0x1,
    KEYSET_GREEN = 0x2,
    KEYSET_YELLOW = 0x4,
    KEYSET_BLUE = 0x8,
    KEYSET_NAVIGATION = 0x10,
    KEYSET_VCR = 0x20,
    KEYSET_SCROLL = 0x40,
    KEYSET_INFO = 0x80,
    KEYSET_NUMERIC = 0x100,
    KEYSET_ALPHA = 0x200,
    KEYSET_OTHER = 0x400,
};

/** A constant of a page's `keyset` object. */
struct KeysetConstant {
    const char* name;
    Keyset value;
};

inline constexpr KeysetConstant keysetConstants[] = {
    {"RED", KEYSET_RED},
    {"GREEN", KEYSET_GREEN},
    {"YELLOW", KEYSET_YELLOW},
    {"BLUE", KEYSET_BLUE},
    {"NAVIGATION", KEYSET_NAVIGATION},
    {"VCR", KEYSET_VCR},
    {"SCROLL", KEYSET_SCROLL},
    {"INFO", KEYSET_INFO},
    {"NUMERIC", KEYSET_NUMERIC},
    {"ALPHA", KEYSET_ALPHA},
    {"OTHER", KEYSET_OTHER},
};

} // namespace tv

#endif
