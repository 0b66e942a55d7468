// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CModuleLoader.h"

#include "layout/api/ILayoutInterface.h"
#include "layout/api/Layout_Init.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

QString CModuleLoader::layoutFile()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/libLayout.so"));
}

CResult<ILayoutInterface *> CModuleLoader::loadLayout(const QString &file, IAbstractControlInterface &host,
                                                      QWidget *parent)
{
    using Result = CResult<ILayoutInterface *>;
    const QString path = QDir::toNativeSeparators(file);
    if (!QFileInfo::exists(file))
        return Result::failure(tr("The Layout module is missing: \"%1\" does not exist.").arg(path));

    QLibrary library(file);
    if (!library.load())
        return Result::failure(tr("The Layout module cannot be loaded: %1").arg(library.errorString()));
    const auto init = reinterpret_cast<decltype(&Layout_Init)>(library.resolve("Layout_Init"));
    if (!init)
        return Result::failure(tr("\"%1\" is not a Layout module: it has no entry point.").arg(path));

    IAbstractControlInterface *control = nullptr;
    if (!init(&control, &host, parent))
        return Result::failure(tr("The Layout module \"%1\" refused to start.").arg(path));
    auto *layout = dynamic_cast<ILayoutInterface *>(control);
    if (!layout)
        return Result::failure(
            tr("The Layout module \"%1\" belongs to another version of the program.").arg(path));
    return layout;
}
