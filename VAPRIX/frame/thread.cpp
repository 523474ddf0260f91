// SPDX-License-Identifier: MIT
#include "frame/thread.hpp"

#ifdef _WIN32
#include <windows.h>
// needs windows.h before it
#include <tlhelp32.h>
#include <winternl.h>

#include <atomic>
#include <cstdint>
#include <iterator>
#elif defined(__linux__)
#include <sys/syscall.h>
#include <unistd.h>
#elif defined(__EMSCRIPTEN__)
#include <emscripten/threading.h>
#else
#include <pthread.h>
#endif

namespace vaprix::thread {

#ifdef _WIN32

// A slot of the system instead of thread_local, for which MinGW brings a run-time library that
// allocates. Where no slot is left the initial thread has its code all the same, the others have 0.
namespace {

DWORD slot = TLS_OUT_OF_INDEXES;
constexpr int before_all_others = 101;  // the first priority that is not the compiler's own
[[gnu::constructor(before_all_others)]] void take_slot() { slot = TlsAlloc(); }
[[gnu::destructor(before_all_others)]] void free_slot() { TlsFree(slot); }

// Windows does not tell a process's first thread: it is the one created earliest of those that still
// run, and of equals, since the clock is coarse, the one listed first. 0 if there is no list.
DWORD earliest_thread() noexcept {
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    DWORD earliest = 0;
    std::uint64_t since = UINT64_MAX;
    for (BOOL more = Thread32First(list, &entry); more; more = Thread32Next(list, &entry)) {
        if (entry.th32OwnerProcessID != GetCurrentProcessId()) continue;
        const HANDLE thread =
            OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ThreadID);
        FILETIME created{}, exited{}, in_kernel{}, in_user{};
        if (GetThreadTimes(thread, &created, &exited, &in_kernel, &in_user)) {
            const std::uint64_t time =
                std::uint64_t{created.dwHighDateTime} << 32 | created.dwLowDateTime;
            if (time < since) since = time, earliest = entry.th32ThreadID;
        }
        CloseHandle(thread);
    }
    CloseHandle(list);
    return earliest;
}

}  // namespace

// g++ 12 takes the block's address, of a segment of its own, for a null pointer (GCC bug 99578).
#pragma GCC diagnostic ignored "-Warray-bounds"

// The first slots stand in the thread's block, where reading one costs a third of the call and leaves
// the thread's last error as it is.
Word::operator int() const noexcept {
    const TEB& block = *NtCurrentTeb();
    const void* const word =
        slot < std::size(block.TlsSlots) ? block.TlsSlots[slot] : TlsGetValue(slot);
    return static_cast<int>(reinterpret_cast<std::intptr_t>(word));
}

const Word& Word::operator=(int word) const noexcept {
    TlsSetValue(slot, reinterpret_cast<void*>(static_cast<std::intptr_t>(word)));
    return *this;
}

// The list is of all threads of the system: it is made once.
bool is_initial() noexcept {
    static std::atomic<DWORD> initial{0};
    if (initial == 0) initial = earliest_thread();
    return initial == GetCurrentThreadId();
}

#else

constinit thread_local int own = 0;

bool is_initial() noexcept {
#ifdef __linux__
    return syscall(SYS_gettid) == getpid();
#elif defined(__EMSCRIPTEN__)
    return emscripten_is_main_runtime_thread() != 0;
#else
    return pthread_main_np() != 0;
#endif
}

#endif

}  // namespace vaprix::thread
