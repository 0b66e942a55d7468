// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include <limits>

// Does on purpose what the language does not define.

int main(int argc, char **)
{
    const volatile int largest = std::numeric_limits<int>::max();
    return largest + argc > 0 ? 0 : 1;
}
