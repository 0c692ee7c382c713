// SPDX-License-Identifier: MIT

/// How the module ends when an assertion of the library fails: it traps, and the page reports that. The
/// functions of wasi-libc and libc++ 16 print a message first, for which they import the file functions of
/// WASI.

#include <__verbose_abort>

// NOLINTBEGIN(cert-dcl50-cpp): declared by the library
void std::__libcpp_verbose_abort(char const* /*format*/, ...) { __builtin_trap(); }
extern "C" void abort_message(const char* /*format*/, ...) { __builtin_trap(); }
// NOLINTEND(cert-dcl50-cpp)
