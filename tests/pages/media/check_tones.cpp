// check-tones FILE HERTZ...: are these the tones that follow one another in a recording of 16-bit samples, 8000 a
// second?
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

namespace {

constexpr size_t windowSamples = 800; // a tenth of a second
constexpr int windowsInSecond = 10;
constexpr int windowsOfTone = 3; // shorter ones are those of a switch
constexpr int toleranceHertz = 20;
constexpr int16_t quiet = 500;

/** @return frequency of a window, 0 for silence */
int toneOf(const int16_t* samples) {
    int waves = 0;
    bool high = false;
    for (size_t i = 0; i < windowSamples; ++i) {
        if (!high && samples[i] > quiet) {
            high = true;
            ++waves;
        } else if (samples[i] < -quiet) {
            high = false;
        }
    }
    return waves * windowsInSecond;
}

std::vector<int> tonesOf(const std::vector<int16_t>& samples) {
    std::vector<int> tones;
    int last = 0;
    int windows = 0;
    for (size_t i = 0; i + windowSamples <= samples.size(); i += windowSamples) {
        const int tone = toneOf(&samples[i]);
        windows = std::abs(tone - last) <= toleranceHertz ? windows + 1 : 1;
        last = tone;
        const bool isNew = tones.empty() || std::abs(tones.back() - tone) > toleranceHertz;
        if (windows == windowsOfTone && tone > 0 && isNew) {
            tones.push_back(tone);
        }
    }
    return tones;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3) {
        std::fputs("Usage: check-tones FILE HERTZ...\n", stderr);
        return 2;
    }
    std::ifstream file(argv[1], std::ios::binary);
    std::vector<int16_t> samples;
    for (int16_t sample = 0; file.read(reinterpret_cast<char*>(&sample), sizeof sample);) {
        samples.push_back(sample);
    }
    const std::vector<int> tones = tonesOf(samples);
    bool right = tones.size() == static_cast<size_t>(argc - 2);
    std::printf("heard in %.1f seconds:", static_cast<double>(samples.size()) / 8000);
    for (size_t i = 0; i < tones.size(); ++i) {
        std::printf(" %d", tones[i]);
        right = right && std::abs(tones[i] - std::atoi(argv[i + 2])) <= toleranceHertz;
    }
    std::puts(right ? "" : ", which is not what was wanted");
    return right ? 0 : 1;
}
