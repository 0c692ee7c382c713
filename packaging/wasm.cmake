# SPDX-License-Identifier: MIT
#
# Compiles for WebAssembly with Debian's packages clang-16, lld-16, llvm-16, wasi-libc, libc++-16-dev-wasm32,
# libc++abi-16-dev-wasm32 and libclang-rt-16-dev-wasm32.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(CMAKE_CXX_COMPILER clang++-16)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_AR llvm-ar-16)
set(CMAKE_RANLIB llvm-ranlib-16)

# Debian's clang-16 misses its own library for this target, and searches the headers of the machine that compiles.
add_compile_options(-nostdlibinc)
set(CMAKE_CXX_FLAGS_INIT
  "-isystem /usr/include/wasm32-wasi/c++/v1 -isystem /usr/include/wasm32-wasi -fno-exceptions")

# A reactor has no main function: the page calls its functions. A stack that overflows traps, because the data lie
# above it. The section of the features stays for wasm-opt, so not --strip-all.
set(CMAKE_EXE_LINKER_FLAGS_INIT
  "-mexec-model=reactor -Wl,--strip-debug,-z,stack-size=65536,--stack-first")
