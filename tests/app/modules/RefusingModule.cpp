// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/Layout_Init.h"

bool Layout_Init(IAbstractControlInterface **, IAbstractControlInterface *, QWidget *)
{
    return false;
}
