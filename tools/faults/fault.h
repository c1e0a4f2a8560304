#pragma once
// The call at which the disk fails, and how. wrapped_calls.cpp wraps the calls; the environment
// says what to do:
//
//     FAULTS_FOLDER   calls on this folder and everything below it are counted from 1; an absolute
//                     path without links
//     FAULTS_LOG      a file outside of it that gets a line for each counted call: number, name,
//                     path, and "!" if the call was disturbed
//     FAULTS_MODE     enospc, eio, erofs: the call fails with that error and does nothing
//                     short: it writes half of its bytes, and the next write to the same file finds
//                     the disk full
//                     full: of this call and the next 29, all that need space fail with ENOSPC
//                     kill-before, kill-half, kill-after: the process ends without the call, after
//                     half of its bytes, or after it
//     FAULTS_AT       the number of the call; 0 or missing: none is disturbed

#include <cstddef>
#include <string>

enum class Fault { None, Fails, Short, KillBefore, KillHalf, KillAfter };

/// Whether a call needs free space, which decides about "full".
enum class Room { NotNeeded, Needed };

struct Verdict {
    Fault fault = Fault::None;
    int error = 0; // for Fails
};

/// Counts a call on a path, if the path is below the folder, and tells what becomes of the call.
Verdict Judge(char const* name, std::string const& path, Room room);

/// The path of an open file, empty if the system knows none.
std::string PathOf(int descriptor);
/// The path that a call with a folder's descriptor means.
std::string PathOf(int folder, char const* path);

/// The next write to this descriptor finds the disk full.
void FillUp(int descriptor);
/// True once for each descriptor that was filled up.
bool TakeFull(int descriptor);

[[noreturn]] void EndProcess();
