#pragma once
// What must hold for every input: broken, it says where and stops the fuzzer, in every kind of
// build.

#include <cstdio>

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition);           \
            __builtin_trap();                                                                      \
        }                                                                                          \
    } while (false)
