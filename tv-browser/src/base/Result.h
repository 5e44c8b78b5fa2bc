/** The result type of all desktop code, for the television's namespace. */
#ifndef TV_RESULT_H
#define TV_RESULT_H

#include <Result.h> // the one of platform/support, not this one

namespace tv {

using support::Failure;
using support::Result;

} // namespace tv

#endif
