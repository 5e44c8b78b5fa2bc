#include "subtitles/CueText.h"

#include "gst/GstPointer.h"

#include <array>
#include <string_view>
#include <vector>

namespace media {
namespace {

struct Entity {
    std::string_view name;
    std::string_view text;
};

// Those of WebVTT and of XML.
constexpr std::array<Entity, 9> ENTITIES = {{{"&lt;", "<"},
                                             {"&gt;", ">"},
                                             {"&quot;", "\""},
                                             {"&apos;", "'"},
                                             {"&#39;", "'"},
                                             {"&nbsp;", "\xC2\xA0"},
                                             {"&lrm;", "\xE2\x80\x8E"},
                                             {"&rlm;", "\xE2\x80\x8F"},
                                             {"&amp;", "&"}}};

std::string unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const Entity* found = nullptr;
        for (const Entity& entity : ENTITIES) {
            if (text.substr(0, entity.name.size()) == entity.name) {
                found = &entity;
                break;
            }
        }
        result += found ? found->text : text.substr(0, 1);
        text.remove_prefix(found ? found->name.size() : 1);
    }
    return result;
}

std::string escaped(std::string_view text) {
    const TextPtr result(g_markup_escape_text(text.data(), static_cast<gssize>(text.size())));
    return result.get();
}

/** The tags of a cue that are open at one point of its text. */
class OpenTags {
public:
    /** @param tag what stands between < and >: "b", "/b", "c.yellow", "v Roger" @return what to write for it */
    std::string apply(std::string_view tag) {
        const bool closes = !tag.empty() && tag.front() == '/';
        if (closes) {
            tag.remove_prefix(1);
        }
        const std::string_view name = tag.substr(0, tag.find_first_of(". \t\n"));
        if (name != "b" && name != "i" && name != "u") {
            return {};
        }
        if (!closes) {
            m_open.push_back(name.front());
            return {'<', name.front(), '>'};
        }
        for (const char open : m_open) {
            if (open == name.front()) {
                return closeUpTo(open);
            }
        }
        return {};
    }

    /** @return the end tags of those that are open, from the last one up to and with `tag`; of all for 0 */
    std::string closeUpTo(char tag) {
        std::string result;
        while (!m_open.empty()) {
            const char last = m_open.back();
            m_open.pop_back();
            result += {'<', '/', last, '>'};
            if (last == tag) {
                break;
            }
        }
        return result;
    }

private:
    std::vector<char> m_open;
};

std::string fromMarkup(std::string_view text) {
    std::string result;
    OpenTags tags;
    while (!text.empty()) {
        const size_t start = text.find('<');
        const size_t end = start == std::string_view::npos ? start : text.find('>', start);
        // subparse escapes once more what a file has escaped.
        result += escaped(unescaped(unescaped(text.substr(0, start))));
        if (end == std::string_view::npos) {
            break;
        }
        result += tags.apply(text.substr(start + 1, end - start - 1));
        text.remove_prefix(end + 1);
    }
    return result + tags.closeUpTo(0);
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/** Blocks of one paragraph keep the space between them; where there is none, a paragraph has ended. */
std::string fromBlocks(GstBuffer* buffer) {
    std::string result;
    for (guint i = 0; i < gst_buffer_n_memory(buffer); ++i) {
        GstMapInfo map;
        GstMemory* memory = gst_buffer_peek_memory(buffer, i);
        if (!gst_memory_map(memory, &map, GST_MAP_READ)) {
            continue;
        }
        const char* data = reinterpret_cast<const char*>(map.data);
        const std::string_view block(data, strnlen(data, map.size));
        if (!block.empty()) {
            if (!result.empty() && !isSpace(result.back()) && !isSpace(block.front())) {
                result += '\n';
            }
            result += block;
        }
        gst_memory_unmap(memory, &map);
    }
    return escaped(result);
}

std::string wholeText(GstBuffer* buffer) {
    GstMapInfo map;
    if (!gst_buffer_map(buffer, &map, GST_MAP_READ)) {
        return {};
    }
    const char* data = reinterpret_cast<const char*>(map.data);
    std::string text(data, strnlen(data, map.size));
    gst_buffer_unmap(buffer, &map);
    return text;
}

/** Without the positions that SubRip files carry as {\an8}. */
std::string withoutOverrides(std::string text) {
    for (size_t start = text.find("{\\"); start != std::string::npos; start = text.find("{\\", start)) {
        const size_t end = text.find('}', start);
        if (end == std::string::npos) {
            break;
        }
        text.erase(start, end + 1 - start);
    }
    return text;
}

/** Without empty lines and without space at the ends of lines. */
std::string tidied(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        while (!line.empty() && isSpace(line.front())) {
            line.remove_prefix(1);
        }
        while (!line.empty() && isSpace(line.back())) {
            line.remove_suffix(1);
        }
        if (!line.empty()) {
            result += result.empty() ? "" : "\n";
            result += line;
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return result;
}

} // namespace

CueFormat cueFormat(const GstCaps* caps) {
    if (gst_caps_features_contains(gst_caps_get_features(caps, 0), "meta:GstSubtitleMeta")) {
        return CueFormat::BLOCKS;
    }
    const char* format = gst_structure_get_string(gst_caps_get_structure(caps, 0), "format");
    return g_strcmp0(format, "pango-markup") == 0 ? CueFormat::MARKUP : CueFormat::PLAIN;
}

std::string cueText(GstBuffer* buffer, CueFormat format) {
    if (format == CueFormat::BLOCKS) {
        return tidied(fromBlocks(buffer));
    }
    const std::string text = withoutOverrides(wholeText(buffer));
    return tidied(format == CueFormat::MARKUP ? fromMarkup(text) : escaped(text));
}

} // namespace media
