// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QString;
class QSvgRenderer;

/// Caches the renderers of the small pictures that are drawn on cabinets.
class CSvgCache final
{
public:
    /// The renderer of a resource; loaded once, owned by the application object. GUI thread.
    static QSvgRenderer &renderer(const QString &resource);
    static QSvgRenderer &lock();       ///< the mark of a locked port
    static QSvgRenderer &redundancy(); ///< the mark of a redundancy port
};
