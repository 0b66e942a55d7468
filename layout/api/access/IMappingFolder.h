// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// Keeps the folder in which the user last opened or saved a file. GUI thread.
class IMappingFolder
{
public:
    virtual ~IMappingFolder() = default;
    virtual QString mappingFolder() const = 0;
    virtual void setMappingFolder(const QString &folder) = 0;
};
