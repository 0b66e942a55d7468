// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/kill/SWallState.h"

#include <QDir>
#include <QRandomGenerator>
#include <QString>
#include <QVector>

#include <memory>

class CWindowUser;

/// Uses the program until it is killed: restores what the last one has left, edits a project and a processor
/// at random, saves, reads and exports, and tells on the standard output what it begins and what is done, a
/// line each: a word, what it is about, its place on the canvas and, where the host knows it by then, its
/// look.
class CDoomedUser final
{
public:
    /// @p folder holds what the program leaves on the disk.
    CDoomedUser(const QString &folder, quint32 seed);
    ~CDoomedUser();

    /// Returns only if something is wrong; then the status is 1.
    int run();

    static QString projectFile(const QString &folder) { return inFolder(folder, "files/wall.sprj"); }
    static QString otherProjectFile(const QString &folder) { return inFolder(folder, "more/other.sprj"); }
    static QString exportFile(const QString &folder) { return inFolder(folder, "files/wall.csv"); }
    static QString stateFolder(const QString &folder) { return inFolder(folder, "state"); }
    static QString journalFolder(const QString &folder) { return inFolder(folder, "journal"); }
    /// What killed processes have left of files that they were writing, or as locks.
    static QStringList strays(const QString &folder);
    static constexpr char DeviceName[] = "Lobby";

private:
    enum EDocument { Project, Device };

    static QString inFolder(const QString &folder, const char *name)
    {
        return QDir(folder).filePath(QLatin1String(name));
    }
    static void tell(const char *what, EDocument document, const SWallState &state);
    static bool complain(const QString &what);
    QString nameOf(EDocument document) const;
    enum class Version { Working, Saved };
    CabinetLayout layoutOf(EDocument document, Version version = Version::Working);
    SWallState stateOf(EDocument document) { return SWallState::of(layoutOf(document)); }
    QVector<int> placesOnScreen() const;   ///< of all cabinets
    int placeOnScreen(int step = 0) const; ///< of the first one; @p step of the selected ones presumed

    bool start();
    bool restore();
    bool findAll();
    bool show(EDocument document);
    bool edit(EDocument document);
    bool selectPort();
    bool selectCabinet();
    void tellDone();
    void press(int key);
    bool editBy(int key);
    bool change();
    bool move();
    bool lock();
    bool applyPattern();
    bool replaceCabinet();
    bool saveProject();
    bool saveDevice();
    bool readDevice();
    bool exportTable();
    bool act();

    const QString m_folder;
    QRandomGenerator m_random;
    std::unique_ptr<CWindowUser> m_user;
    QString m_project; ///< its name in the tree
    EDocument m_shown = Project;
    enum class Selected { Port, Cabinet, Unknown };
    Selected m_selected = Selected::Unknown;
};
