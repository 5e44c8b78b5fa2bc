#include "kit/Traces.h"

#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <unistd.h>

namespace compliance {
namespace {

long countEntries(const char* folder) {
    DIR* opened = opendir(folder);
    if (!opened) {
        return -1;
    }
    long count = 0;
    while (const dirent* entry = readdir(opened)) {
        count += entry->d_name[0] == '.' ? 0 : 1;
    }
    closedir(opened);
    return count - (std::strcmp(folder, "/proc/self/fd") == 0 ? 1 : 0); // the one that reads the folder
}

/** As glibc's struct mallinfo2, which its headers have only since 2.33. */
struct HeapInfo {
    size_t fields[10];
};

long residentBytes() {
    FILE* file = std::fopen("/proc/self/statm", "re");
    long total = 0;
    long resident = -1;
    if (file) {
        if (std::fscanf(file, "%ld %ld", &total, &resident) != 2) {
            resident = -1;
        }
        std::fclose(file);
    }
    return resident < 0 ? -1 : resident * sysconf(_SC_PAGESIZE);
}

} // namespace

long countThreads() {
    return countEntries("/proc/self/task");
}

long countDescriptors() {
    return countEntries("/proc/self/fd");
}

long heapBytes() {
    if (void* sanitizer = dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes")) {
        return static_cast<long>(reinterpret_cast<size_t (*)()>(sanitizer)());
    }
    if (void* library = dlsym(RTLD_DEFAULT, "mallinfo2")) {
        const HeapInfo info = reinterpret_cast<HeapInfo (*)()>(library)();
        return static_cast<long>(info.fields[4] + info.fields[7]); // mmapped and in use
    }
    return residentBytes();
}

long countReads() {
    FILE* file = std::fopen("/proc/self/io", "re");
    if (!file) {
        return -1;
    }
    long reads = -1;
    char line[128];
    while (std::fgets(line, sizeof line, file)) {
        std::sscanf(line, "syscr: %ld", &reads);
    }
    std::fclose(file);
    return reads;
}

} // namespace compliance
