// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/library/CTypeLibrary.h"
#include "platform/widgets/CDialog.h"

class QTreeWidgetItem;

/// Shows the cabinet types with their data. GUI thread.
class CTypeLibraryDialog final : public CDialog
{
    Q_OBJECT

public:
    CTypeLibraryDialog(const CTypeLibrary &library, QWidget *parent);

private:
    void buildUi(const CTypeLibrary &library);
    static QTreeWidgetItem *item(const CTypeLibrary::STreeNode &node);
};
