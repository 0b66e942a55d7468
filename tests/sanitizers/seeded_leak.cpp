// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0

// Leaks memory on purpose.

namespace {

constexpr int Blocks = 100; // the last may still be found on the stack

void leak()
{
    int *volatile lost = nullptr;
    for (int i = 0; i < Blocks; ++i)
        lost = new int(i);
    lost = nullptr;
}

} // namespace

int main()
{
    leak();
    return 0;
}
