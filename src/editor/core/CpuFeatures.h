#pragma once
// Which of the processor's wider instructions the painter's byte scans may use. They are
// chosen once per process; setting KESTRUM_BASELINE_SIMD in the environment keeps every scan
// on the instructions that all x86-64 processors have (the tests run both ways).

// Whether AVX2 with BMI1 and POPCNT is there to use.
bool UseAvx2();

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
// Marks a function compiled for those instructions, called only when UseAvx2() says so. Such
// a function may use intrinsics and builtins only: an inline function from a header compiled
// in it could be shared with code that runs on any processor.
#define KESTRUM_AVX2_FUNCTION __attribute__((target("avx2,bmi,popcnt")))
#endif
