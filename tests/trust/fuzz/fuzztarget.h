// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <cstdint>

/// What each target defines: one input, whatever its bytes. Ends the process where a promise is broken.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
/// Called once before the first input, by the fuzzer and by the replay alike.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
