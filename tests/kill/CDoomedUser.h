// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QDir>
#include <QRandomGenerator>
#include <QString>
#include <QVector>

#include <memory>

class CWindowUser;

/// Uses the program until it is killed: restores what the last one has left, edits a project and a processor
/// at random, saves, reads and exports, and tells on the standard output what it begins and what is done, a
/// line each: a word, what it is about, and the place of its first port on the canvas.
class CDoomedUser final
{
public:
    static constexpr int AnyPlace = -1; ///< told when the outcome is not known beforehand

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
    static constexpr int Locked = 1000; ///< is added to the place if port 2 is locked
    static int placeIn(const CabinetLayout &layout);

private:
    enum EDocument { Project, Device };

    static QString inFolder(const QString &folder, const char *name)
    {
        return QDir(folder).filePath(QLatin1String(name));
    }
    static void tell(const char *what, EDocument document, int place);
    static bool complain(const QString &what);
    QString nameOf(EDocument document) const;
    int placeOf(EDocument document, bool saved = false);
    QVector<int> placesOnScreen() const; ///< of all cabinets
    int placeOnScreen() const;

    bool start();
    bool restore();
    bool findAll();
    bool show(EDocument document);
    bool edit(EDocument document);
    bool change(int before);
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
};
