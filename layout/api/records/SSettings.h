// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SMD5.h"

#include <QRect>
#include <QSize>
#include <QStringList>
#include <QVector>

/// Settings that the host keeps for all processors.
struct SSettings
{
    /// The library of cabinet types, a tree of folders and types.
    struct TypeLibrary
    {
        /// A folder or a cabinet type. Only folders have children.
        struct STreeNode
        {
            enum Kind { Type = 0, Folder = 1 };

            /// What is known about a cabinet (receiver) type.
            struct RcvTypeInfo
            {
                enum Kind { SingleReceiver = 1, MultiReceiver = 2 };

                SMD5 key;
                QString name;
                int kind = SingleReceiver;
                int width = 0;            ///< pixels
                int height = 0;           ///< pixels
                QVector<QRect> receivers; ///< one rectangle for each receiver, in wiring order, in the
                                          ///< cabinet's own pixels
                QSizeF millimetres;       ///< empty: unknown
                double kilograms = 0;     ///< 0: unknown
                int wattsMaximum = 0;     ///< 0: unknown
                int wattsAverage = 0;     ///< 0: unknown
                int voltsMinimum = 0;     ///< 0: unknown
                int voltsMaximum = 0;     ///< 0: unknown
                bool customGamma = false; ///< carries a gamma table of its own
                bool damaged = false;     ///< its file could not be read

                bool isValid() const { return !key.isNull() && !damaged; }
                friend bool operator==(const RcvTypeInfo &a, const RcvTypeInfo &b);
                friend bool operator!=(const RcvTypeInfo &a, const RcvTypeInfo &b) { return !(a == b); }
            };

            QString name;
            int kind = Type; ///< 1 marks a folder, any other value a cabinet type
            SMD5 key;
            QStringList entries; ///< search words for the node
            RcvTypeInfo info;
            QVector<STreeNode> children;

            bool isFolder() const { return kind == Folder; }
            friend bool operator==(const STreeNode &a, const STreeNode &b);
            friend bool operator!=(const STreeNode &a, const STreeNode &b) { return !(a == b); }
        };
    };
};
Q_DECLARE_METATYPE(SSettings::TypeLibrary::STreeNode)
Q_DECLARE_METATYPE(SSettings::TypeLibrary::STreeNode::RcvTypeInfo)
