// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/CJsonMutator.h"
#include "fuzz/FuzzTargets.h"
#include "layout/resources/LayoutResources.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// What the fuzzer's runtime calls. The target's name is given by the build.

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maximum);
extern "C" const char *__lsan_default_suppressions();
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maximum, unsigned seed);

namespace {

QByteArray bytesOf(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), int(size));
}

const FuzzTargets::STarget &target()
{
    const auto &targets = FuzzTargets::all();
    return *std::find_if(targets.begin(), targets.end(), [](const FuzzTargets::STarget &target) {
        return std::strcmp(target.name, ORVO_FUZZ_TARGET) == 0;
    });
}

void keepQuiet(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        std::abort();
    }
}

} // namespace

extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libqoffscreen.so\nleak:libfontconfig.so\nleak:libdbus-1.so\n";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    qInstallMessageHandler(keepQuiet);
    new QApplication(*argc, *argv); // lives as long as the process
    initLayoutResources();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString fault = target().run(bytesOf(data, size));
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(fault));
        std::abort();
    }
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maximum, unsigned seed)
{
    if (!target().isJson || seed % 4 == 0)
        return LLVMFuzzerMutate(data, size, maximum);
    const QByteArray changed = CJsonMutator(seed).mutated(bytesOf(data, size));
    if (changed.isEmpty() || size_t(changed.size()) > maximum)
        return LLVMFuzzerMutate(data, size, maximum);
    std::memcpy(data, changed.constData(), size_t(changed.size()));
    return size_t(changed.size());
}
