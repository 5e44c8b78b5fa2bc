/** The timeline's file of --timeline. */
#ifndef TIMELINEFILE_H
#define TIMELINEFILE_H

#include "base/Result.h"
#include "timeline/TimelineEntry.h"

#include <QFile>

namespace tv {

/** Writes entries as JSON objects, one in each line. docs/timeline.md describes them. */
class TimelineFile {
public:
    /** Creates the file, or empties it. */
    explicit TimelineFile(const QString& path);

    /** @return why the file cannot be written */
    Result<void, QString> check() const;

    /** Writes the entries to the disk at once, so that a crash loses none of them. */
    void write(const TimelineEntries& entries);

private:
    QFile m_file;
};

} // namespace tv

#endif
