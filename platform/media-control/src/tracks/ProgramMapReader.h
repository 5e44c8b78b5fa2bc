/** The program map of an MPEG transport stream (ISO/IEC 13818-1). */
#ifndef MEDIA_CONTROL_PROGRAMMAPREADER_H
#define MEDIA_CONTROL_PROGRAMMAPREADER_H

#include "tracks/TransportStreamInfo.h"

#include <cstdint>
#include <memory>
#include <vector>

struct dvbpsi_s;
struct dvbpsi_pat_s;
struct dvbpsi_pmt_s;

namespace media {

/** Reads the map from the data that passes, in pieces of any size. Used by one thread at a time. */
class ProgramMapReader {
public:
    /** @param info gets the descriptors of the first program's streams */
    explicit ProgramMapReader(std::shared_ptr<TransportStreamInfo> info);
    ~ProgramMapReader();

    ProgramMapReader(const ProgramMapReader&) = delete;
    ProgramMapReader& operator=(const ProgramMapReader&) = delete;

    /** @param bytes the next piece of the stream. @return false when no more is needed */
    bool read(const uint8_t* bytes, size_t count);

private:
    void readPacket(uint8_t* packet);
    static void onPrograms(void* self, dvbpsi_pat_s* programs);
    static void onMap(void* self, dvbpsi_pmt_s* map);

    const std::shared_ptr<TransportStreamInfo> m_info;
    dvbpsi_s* const m_programs;
    dvbpsi_s* const m_map;
    int m_mapPid = -1;
    bool m_isRead = false;
    size_t m_bytesSeen = 0;
    std::vector<uint8_t> m_rest; // less than a packet, from the last piece
};

} // namespace media

#endif
