// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/Layout_Init.h"

#include "layout/plugin/CLayout.h"
#include "platform/control/UiOrvo.h"

#include <QAbstractButton>

bool Layout_Init(IAbstractControlInterface **out, IAbstractControlInterface *host, QWidget *parent)
{
    if (!out || !host)
        return false;
    CLayout &layout = CSingleton<CLayout>::instance();
    if (!layout.awaitsHost())
        return false;
    *out = &layout;
    layout.setParent(parent);

    layout.setHost(*host);
    QObject *hostObject = host->object();
    const UiOrvo::EnModule module = UiOrvo::ModuleLayout;
    QMetaObject::invokeMethod(hostObject, "AddRightBarWidget", Q_ARG(UiOrvo::EnModule, module),
                              Q_ARG(QWidget *, layout.rightBarWidget()));
    // Not every host has a status bar, or room beside the title.
    if (hostObject->metaObject()->indexOfMethod("AddStatusBarWidget(UiOrvo::EnModule,QWidget*)") >= 0)
        QMetaObject::invokeMethod(hostObject, "AddStatusBarWidget", Q_ARG(UiOrvo::EnModule, module),
                                  Q_ARG(QWidget *, layout.statusBarWidget()));
    if (hostObject->metaObject()->indexOfMethod("AddTitleBarWidget(UiOrvo::EnModule,QWidget*)") >= 0) {
        QMetaObject::invokeMethod(hostObject, "AddTitleBarWidget", Q_ARG(UiOrvo::EnModule, module),
                                  Q_ARG(QWidget *, layout.titleBarWidget()));
        layout.titleBarWidget()->hide(); // until the editor is shown
    }
    QMetaObject::invokeMethod(hostObject, "AddLock", Q_ARG(UiOrvo::EnModule, module));
    QMetaObject::invokeMethod(hostObject, "AddCollapse", Q_ARG(UiOrvo::EnModule, module));

    QObject::connect(&layout.showScreenButton(), &QAbstractButton::clicked, &layout, &CLayout::showScreen);
    return true;
}
