// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/json/CJsonValue.h"

#include <QJsonObject>

#include <memory>

/// A JSON object, read as places in its text. It takes much less memory than a QJsonDocument. Copies are
/// shared. Any thread.
class CJsonDocument final
{
public:
    explicit CJsonDocument(SJsonContent content)
        : m_content(std::make_shared<const SJsonContent>(std::move(content)))
    {
    }
    /// What reading @p json would give after it was written, but with texts that could not be written.
    static CJsonDocument of(const QJsonObject &json);

    CJsonValue root() const { return {*m_content, m_content->nodes.back()}; }

private:
    std::shared_ptr<const SJsonContent> m_content;
};
