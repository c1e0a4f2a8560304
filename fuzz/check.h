#pragma once
// A condition that must hold for every input. If it doesn't, says where and stops the fuzzer, in
// every kind of build.

#include <cstdio>

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition);           \
            __builtin_trap();                                                                      \
        }                                                                                          \
    } while (false)
