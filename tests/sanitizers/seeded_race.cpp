// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include <thread>

// Counts on two threads without a lock, on purpose.

namespace {

int counter = 0;

void count()
{
    for (int i = 0; i < 1000; ++i)
        ++counter;
}

} // namespace

int main()
{
    std::thread first(count);
    std::thread second(count);
    first.join();
    second.join();
    return counter > 0 ? 0 : 1;
}
