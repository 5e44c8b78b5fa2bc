#include "tracks/ProgramMapReader.h"

// In groups: the library's headers need those before them.
#include <dvbpsi/dvbpsi.h>
#include <dvbpsi/psi.h>

#include <dvbpsi/descriptor.h>
#include <dvbpsi/dr_0a.h>
#include <dvbpsi/dr_52.h>

#include <dvbpsi/pat.h>
#include <dvbpsi/pmt.h>

namespace media {
namespace {

constexpr size_t PACKET_BYTES = 188;
constexpr uint8_t SYNC_BYTE = 0x47;
constexpr int PROGRAMS_PID = 0;
constexpr size_t ENOUGH_BYTES = 4'000'000; // a map comes several times a second

constexpr uint8_t LANGUAGE = 0x0a;          // descriptors of ISO/IEC 13818-1,
constexpr uint8_t STREAM_IDENTIFIER = 0x52; // and of EN 300 468
constexpr uint8_t EXTENSION = 0x7f;
constexpr uint8_t SUPPLEMENTARY_AUDIO = 0x06;
constexpr int VISUALLY_IMPAIRED = 3; // audio type
constexpr int DESCRIBES_PICTURE = 1; // editorial classification

bool describesPicture(dvbpsi_descriptor_t* descriptor) {
    if (descriptor->i_tag == LANGUAGE) {
        const dvbpsi_iso639_dr_t* language = dvbpsi_DecodeISO639Dr(descriptor);
        return language && language->i_code_count > 0 && language->code[0].i_audio_type == VISUALLY_IMPAIRED;
    }
    // The extension, then a bit of mix type and five of classification.
    return descriptor->i_tag == EXTENSION && descriptor->i_length >= 2 &&
           descriptor->p_data[0] == SUPPLEMENTARY_AUDIO && (descriptor->p_data[1] >> 2 & 0x1f) == DESCRIBES_PICTURE;
}

StreamDescriptors descriptorsOf(const dvbpsi_pmt_es_t& stream) {
    StreamDescriptors descriptors;
    for (dvbpsi_descriptor_t* each = stream.p_first_descriptor; each; each = each->p_next) {
        descriptors.audioDescription |= describesPicture(each);
        if (each->i_tag == STREAM_IDENTIFIER) {
            const dvbpsi_stream_identifier_dr_t* identifier = dvbpsi_DecodeStreamIdentifierDr(each);
            descriptors.componentTag = identifier ? identifier->i_component_tag : -1;
        }
    }
    return descriptors;
}

} // namespace

ProgramMapReader::ProgramMapReader(std::shared_ptr<TransportStreamInfo> info)
    : m_info(std::move(info)), m_programs(dvbpsi_new(nullptr, DVBPSI_MSG_NONE)),
      m_map(dvbpsi_new(nullptr, DVBPSI_MSG_NONE)) {
    m_isRead = !m_programs || !m_map || !dvbpsi_pat_attach(m_programs, &ProgramMapReader::onPrograms, this);
}

ProgramMapReader::~ProgramMapReader() {
    if (m_programs && dvbpsi_decoder_present(m_programs)) {
        dvbpsi_pat_detach(m_programs);
    }
    if (m_map && dvbpsi_decoder_present(m_map)) {
        dvbpsi_pmt_detach(m_map);
    }
    dvbpsi_delete(m_programs);
    dvbpsi_delete(m_map);
}

bool ProgramMapReader::read(const uint8_t* bytes, size_t count) {
    m_bytesSeen += count;
    m_rest.insert(m_rest.end(), bytes, bytes + count);
    size_t position = 0;
    while (!m_isRead && m_rest.size() - position > PACKET_BYTES) {
        if (m_rest[position] == SYNC_BYTE && m_rest[position + PACKET_BYTES] == SYNC_BYTE) {
            readPacket(m_rest.data() + position);
            position += PACKET_BYTES;
        } else {
            ++position;
        }
    }
    m_rest.erase(m_rest.begin(), m_rest.begin() + static_cast<std::ptrdiff_t>(position));
    return !m_isRead && m_bytesSeen < ENOUGH_BYTES;
}

void ProgramMapReader::readPacket(uint8_t* packet) {
    const int pid = (packet[1] & 0x1f) << 8 | packet[2];
    if (pid == PROGRAMS_PID) {
        dvbpsi_packet_push(m_programs, packet);
    } else if (pid == m_mapPid) {
        dvbpsi_packet_push(m_map, packet);
    }
}

void ProgramMapReader::onPrograms(void* self, dvbpsi_pat_s* programs) {
    auto* reader = static_cast<ProgramMapReader*>(self);
    for (const dvbpsi_pat_program_t* each = programs->p_first_program; each; each = each->p_next) {
        // Number 0 is not a program but the network's table.
        if (each->i_number != 0 && reader->m_mapPid < 0 &&
            dvbpsi_pmt_attach(reader->m_map, each->i_number, &ProgramMapReader::onMap, self)) {
            reader->m_mapPid = each->i_pid;
        }
    }
    dvbpsi_pat_delete(programs);
}

void ProgramMapReader::onMap(void* self, dvbpsi_pmt_s* map) {
    auto* reader = static_cast<ProgramMapReader*>(self);
    for (const dvbpsi_pmt_es_t* each = map->p_first_es; each; each = each->p_next) {
        reader->m_info->set(each->i_pid, descriptorsOf(*each));
    }
    dvbpsi_pmt_delete(map);
    reader->m_isRead = true;
}

} // namespace media
