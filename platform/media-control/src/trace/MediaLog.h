/** Error lines of the player in the television's log. */
#ifndef MEDIA_CONTROL_MEDIALOG_H
#define MEDIA_CONTROL_MEDIALOG_H

#include <string>

namespace media {

/** Writes an error line to the console and the file, as far as each wants it. Thread: any. */
void logError(const char* function, int line, const std::string& text);

} // namespace media

#define MEDIA_LOG_ERROR(text) ::media::logError(__func__, __LINE__, text)

#endif
