// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "host/projects/CWallBuilder.h"

#include <QByteArray>
#include <QString>

#include <functional>

/// Values and means shared by the tests of project files.
namespace ProjectSamples {

/// A project of that wall.
SProcessorProject ofWall(CWallBuilder::Wall wall);
/// Gives @p project one more port, which is the redundancy of its first one.
void addRedundancyPort(SProcessorProject &project);
/// A small project in which every member of every record differs from its default.
SProcessorProject withEverything();

QByteArray contentOf(const QString &file);
void setContent(const QString &file, const QByteArray &content);

/// Whether @p work, run in a process of its own, comes to an end and returns true.
bool trueInChild(const std::function<bool()> &work);
/// From now on the process gets no memory any more, except that many megabytes, more or less.
void leaveMemory(int megabytes);

} // namespace ProjectSamples
