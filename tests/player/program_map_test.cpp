// Descriptors that broadcasters set and no encoder of ours does.
#include "tracks/ProgramMapReader.h"

#include <dvbpsi/dvbpsi.h>
#include <dvbpsi/psi.h>

#include <dvbpsi/descriptor.h>
#include <dvbpsi/pat.h>
#include <dvbpsi/pmt.h>

#include <gtest/gtest.h>
#include <string>

namespace {

constexpr uint16_t mapPid = 0x20;

/** @return the sections in packets of that PID */
std::string packets(uint16_t pid, dvbpsi_psi_section_t* sections) {
    std::string all;
    for (const dvbpsi_psi_section_t* each = sections; each; each = each->p_next) {
        std::string packet = {0x47, static_cast<char>(0x40 | pid >> 8), static_cast<char>(pid), 0x10, 0};
        packet.append(each->p_data, each->p_payload_end + 4); // a checksum follows the payload
        packet.resize(188, '\xff');
        all += packet;
    }
    dvbpsi_DeletePSISections(sections);
    return all;
}

/** @return a transport stream of the tables alone */
std::string stream() {
    dvbpsi_t* library = dvbpsi_new(nullptr, DVBPSI_MSG_NONE);
    dvbpsi_pat_t* programs = dvbpsi_pat_new(1, 0, true);
    dvbpsi_pat_program_add(programs, 0, 0x10);
    dvbpsi_pat_program_add(programs, 5, mapPid);
    dvbpsi_pmt_t* map = dvbpsi_pmt_new(5, 0, true, 0x100);
    const auto add = [map](uint16_t pid, std::initializer_list<std::string> descriptors) {
        dvbpsi_pmt_es_t* made = dvbpsi_pmt_es_add(map, 0x0f, pid);
        for (std::string each : descriptors) {
            auto* content = reinterpret_cast<uint8_t*>(each.data());
            dvbpsi_pmt_es_descriptor_add(made, content[0], static_cast<uint8_t>(each.size() - 1), content + 1);
        }
    };
    // 0x52 names the component tag; 0x0a language and audio type; 0x7f 0x06 is of supplementary audio.
    add(0x100, {"\x52\x07"});
    add(0x101, {"\x7f\x06\x04", "\x52\xff"});
    add(0x102, {"\x7f\x06\x08", "\x0a"
                                "deu\x02"});
    add(0x103, {"\x7f\x06",
                "\x0a"
                "deu",
                "\x52", "\x7f"});
    add(0x1f04, {"\x0a"
                 "deu\x03"});
    const std::string all = packets(0, dvbpsi_pat_sections_generate(library, programs, 100)) +
                            packets(mapPid, dvbpsi_pmt_sections_generate(library, map));
    dvbpsi_pat_delete(programs);
    dvbpsi_pmt_delete(map);
    dvbpsi_delete(library);
    return all + std::string(188, '\x47');
}

} // namespace

TEST(ProgramMap, GivesTheDescriptorsOfItsStreams) {
    for (const size_t part : {10'000U, 188U, 61U}) { // bytes that come at once
        const auto info = std::make_shared<media::TransportStreamInfo>();
        media::ProgramMapReader reader(info);
        const std::string all = "noise G" + stream();
        bool wantsMore = true;
        for (size_t i = 0; i < all.size(); i += part) {
            const std::string bytes = all.substr(i, part);
            wantsMore = reader.read(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
        }
        EXPECT_FALSE(wantsMore);
        std::string read;
        for (const char* id : {"00000100", "00000101", "00000102", "00000103", "00001f04", "00000105", "0000101x"}) {
            const media::StreamDescriptors found = info->of(std::string("source:1/") + id);
            read += std::to_string(found.componentTag) + (found.audioDescription ? "+ " : " ");
        }
        EXPECT_EQ("7 255+ -1 -1 -1+ -1 -1 ", read) << part;
        EXPECT_EQ(-1, info->of("audio-English").componentTag);
    }
}

TEST(ProgramMap, IsNotSoughtForEver) {
    media::ProgramMapReader reader(std::make_shared<media::TransportStreamInfo>());
    const std::string bytes(1'000'000, 'G');
    int reads = 0;
    while (reads < 100 && reader.read(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size())) {
        ++reads;
    }
    EXPECT_LT(reads, 100);
}
