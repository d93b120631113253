// Memory that ends, preloaded into the program: of its allocations after the start of main the n-th fails.
//   FAILING_ALLOCATION=N  ALLOCATIONS_REPORT=FILE (gets the number of allocations at the end)
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace {

std::atomic<long> allocations = 0;
std::atomic<bool> counts = false;
long failing = 0;
int (*programMain)(int, char**, char**) = nullptr;

bool Fails() {
    if (!counts || ++allocations != failing) return false;
    errno = ENOMEM;
    return true;
}

void Report() {
    counts = false;
    if (const char* const file = std::getenv("ALLOCATIONS_REPORT")) {
        if (std::FILE* const report = std::fopen(file, "w")) {
            std::fprintf(report, "%ld", allocations.load());
            std::fclose(report);
        }
    }
}

int CountedMain(int count, char** arguments, char** environment) {
    if (const char* const number = std::getenv("FAILING_ALLOCATION")) failing = std::atol(number);
    std::atexit(Report);
    counts = true;
    return programMain(count, arguments, environment);
}

} // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) { return Fails() ? nullptr : __libc_calloc(count, size); }
void* realloc(void* block, std::size_t size) { return Fails() ? nullptr : __libc_realloc(block, size); }

int __libc_start_main(int (*main)(int, char**, char**), int count, char** arguments, void (*begin)(), void (*end)(),
                      void (*endOfLoader)(), void* stack) {
    using Start = int(int (*)(int, char**, char**), int, char**, void (*)(), void (*)(), void (*)(), void*);
    programMain = main;
    auto* const start = reinterpret_cast<Start*>(::dlsym(RTLD_NEXT, "__libc_start_main"));
    return start(CountedMain, count, arguments, begin, end, endOfLoader, stack);
}
}
