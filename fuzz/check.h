#pragma once
// What must hold for every input: broken, it stops the fuzzer in every kind of build.

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition))                                                                          \
            __builtin_trap();                                                                      \
    } while (false)
