// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/AppIcons.h"

#include "platform/widgets/CSvgIcon.h"

#include <QFile>

QIcon AppIcons::icon(const char *name)
{
    struct SState
    {
        const char *suffix;
        QIcon::Mode mode;
        QIcon::State state;
    };
    static const SState states[] = {{"_normal", QIcon::Normal, QIcon::Off},
                                    {"_hover", QIcon::Active, QIcon::Off},
                                    {"_checked", QIcon::Normal, QIcon::On},
                                    {"_disabled", QIcon::Disabled, QIcon::Off}};
    CSvgIcon icon;
    for (const SState &state : states) {
        const QString file =
            QStringLiteral(":/Image/App/%1%2.svg").arg(QLatin1String(name), QLatin1String(state.suffix));
        if (QFile::exists(file))
            icon.add(file, state.mode, state.state);
    }
    return icon.icon();
}
