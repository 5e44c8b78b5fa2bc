#include "allocations.h"

#include <link.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>
#include <unwind.h>

#include <algorithm>
#include <new>

// The allocator behind malloc: a sanitizer's, when there is one.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" void* __interceptor_malloc(size_t size);
#define NEXT_MALLOC __interceptor_malloc
#else
extern "C" void* __libc_malloc(size_t size);
#define NEXT_MALLOC __libc_malloc
#endif

namespace fake {
namespace {

thread_local bool watching = false;
thread_local int count = 0;
thread_local int failing = 0;
thread_local bool failsOnwards = false;

/// The code of libraries whose file names contain a text.
class Code {
public:
    explicit Code(const char* library, const char* otherLibrary) : m_libraries{library, otherLibrary} {
        dl_iterate_phdr(
            [](dl_phdr_info* info, size_t, void* code) {
                static_cast<Code*>(code)->add(*info);
                return 0;
            },
            this);
    }

    bool contains(uintptr_t address) const {
        return std::any_of(m_ranges, m_ranges + m_count,
                           [address](const Range& range) { return address >= range.begin && address < range.end; });
    }

private:
    struct Range {
        uintptr_t begin;
        uintptr_t end;
    };

    void add(const dl_phdr_info& info) {
        const bool isWanted =
            strstr(info.dlpi_name, m_libraries[0]) != nullptr || strstr(info.dlpi_name, m_libraries[1]) != nullptr;
        for (int i = 0; isWanted && i < info.dlpi_phnum && m_count < MOST_RANGES; ++i) {
            const auto& segment = info.dlpi_phdr[i];
            if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X)) {
                const uintptr_t begin = info.dlpi_addr + segment.p_vaddr;
                m_ranges[m_count++] = {begin, begin + segment.p_memsz};
            }
        }
    }

    static constexpr size_t MOST_RANGES = 8;
    const char* m_libraries[2];
    Range m_ranges[MOST_RANGES];
    size_t m_count = 0;
};

bool isOfCppLibrary(uintptr_t address) {
    static const Code code("libstdc++", "libc++");
    return code.contains(address);
}

bool isOfLibraryUnderTest(uintptr_t address) {
    static const Code code("avcontrol-plugin", "hbbtv-plugin-framework");
    return code.contains(address);
}

/// Tests and the C++ library allocate too; only what the libraries under test ask for counts.
bool isAskedByLibraries(void* caller) {
    const auto returnAddress = reinterpret_cast<uintptr_t>(caller);
    if (!isOfCppLibrary(returnAddress)) {
        return isOfLibraryUnderTest(returnAddress);
    }
    // On behalf of whoever called the C++ library.
    struct {
        bool inCppLibrary;
        bool asked;
    } walk = {false, false};
    _Unwind_Backtrace(
        [](_Unwind_Context* context, void* data) {
            auto& walked = *static_cast<decltype(walk)*>(data);
            const uintptr_t address = _Unwind_GetIP(context);
            const bool inCppLibrary = isOfCppLibrary(address);
            if (walked.inCppLibrary && !inCppLibrary) {
                walked.asked = isOfLibraryUnderTest(address);
                return _URC_END_OF_STACK;
            }
            walked.inCppLibrary = inCppLibrary;
            return _URC_NO_REASON;
        },
        &walk);
    return walk.asked;
}

} // namespace

void (*atAllocation)(int number) = nullptr;

void failAllocation(int nth, bool onwards) {
    watching = true;
    count = 0;
    failing = nth;
    failsOnwards = onwards;
}

int countAllocations() {
    const int counted = count;
    failAllocation(0);
    return counted;
}

bool allocationFails() {
    if (!watching) {
        return false;
    }
    ++count;
    if (atAllocation) {
        watching = false;
        atAllocation(count);
        watching = true;
    }
    return count == failing || (failsOnwards && failing > 0 && count > failing);
}

bool allocationFailsFor(void* caller) {
    if (!watching) {
        return false;
    }
    watching = false;
    const bool counts = isAskedByLibraries(caller);
    watching = true;
    return counts && allocationFails();
}

} // namespace fake

// Replacements of the process-wide functions, for the libraries too.
#define CALLER __builtin_return_address(0)

// A sanitizer allocates before it is ready to check accesses.
extern "C" __attribute__((no_sanitize("address", "thread", "undefined"))) void* malloc(size_t size) {
    return fake::watching && fake::allocationFailsFor(CALLER) ? nullptr : NEXT_MALLOC(size);
}

void* operator new(size_t size, const std::nothrow_t&) noexcept {
    return fake::allocationFailsFor(CALLER) ? nullptr : ::operator new(size);
}

void* operator new[](size_t size, const std::nothrow_t&) noexcept {
    return fake::allocationFailsFor(CALLER) ? nullptr : ::operator new[](size);
}
