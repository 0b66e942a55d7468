// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "layout/resources/LayoutResources.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

enum EExitStatus : int { Success = 0, Failure = 1, Usage = 2 };

constexpr char UsageText[] = "Usage: orvo_benchmark [ID …]   measures these goals, or all\n"
                             "       orvo_benchmark --list   names the goals\n";

const SBenchmark *benchmarkOf(const char *id)
{
    const QVector<SBenchmark> &all = Benchmarks::all();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [id](const SBenchmark &benchmark) { return !qstrcmp(benchmark.id, id); });
    return found == all.end() ? nullptr : &*found;
}

int listBenchmarks()
{
    for (const SBenchmark &benchmark : Benchmarks::all())
        std::printf("%-4s %s\n", benchmark.id, benchmark.work);
    return Success;
}

int playChildPart(const char *name, int argc, char **argv)
{
    for (const SChildPart &part : Benchmarks::childParts()) {
        if (!qstrcmp(part.name, name))
            return part.run(argc, argv);
    }
    std::fputs(UsageText, stderr);
    return Usage;
}

/// Settings, caches and fonts of the user who measures stay out of the figures.
void setPrivateHome(const QString &folder)
{
    const QByteArray home = folder.toUtf8();
    for (const char *name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, home);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3 && !qstrcmp(argv[1], "--child"))
        return playChildPart(argv[2], argc, argv); // in the environment of its parent
    if (argc == 2 && !qstrcmp(argv[1], "--list"))
        return listBenchmarks();
    QVector<const SBenchmark *> wanted;
    for (int i = 1; i < argc; ++i) {
        wanted << benchmarkOf(argv[i]);
        if (!wanted.last()) {
            std::fprintf(stderr, "orvo_benchmark: unknown goal: %s\n%s", argv[i], UsageText);
            return Usage;
        }
    }

    const QTemporaryDir home;
    setPrivateHome(home.path());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    initLayoutResources();
    for (const SBenchmark &benchmark : Benchmarks::all()) {
        if (wanted.isEmpty() || wanted.contains(benchmarkOf(benchmark.id)))
            benchmark.run();
    }
    return Success;
}
