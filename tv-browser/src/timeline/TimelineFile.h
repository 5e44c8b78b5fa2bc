/**
 * The timeline in a file, one JSON object in each line: docs/timeline.md.
 */
#ifndef TIMELINEFILE_H
#define TIMELINEFILE_H

#include "timeline/TimelineEntry.h"

#include <QFile>

namespace tv {

class TimelineFile {
public:
    /** Empties the file, or makes it. */
    explicit TimelineFile(const QString& path);

    /** @return why the file cannot be written; empty when it can */
    QString problem() const;

    /** Writes the entries out: nothing is lost in a crash that follows. */
    void write(const TimelineEntries& entries);

private:
    QFile m_file;
};

} // namespace tv

#endif
