// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0

// Leaks memory on purpose.

namespace {

constexpr int Blocks = 100; // the last may still be found on the stack
int *volatile lost = nullptr;

void leak()
{
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
