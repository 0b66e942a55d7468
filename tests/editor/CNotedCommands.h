// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/menus/IEditorCommands.h"

#include <QMenu>
#include <QStringList>

/// Commands for tests: records the calls.
class CNotedCommands final : public IEditorCommands
{
public:
    QStringList calls;
    QString refusal;         ///< the answer of connectionRefusal()
    QList<Cabinet> cabinets; ///< of the last call
    CabinetHighlight highlighted = CabinetHighlight::Off;
    bool highlights = true; ///< the answer of highlight()

    void fillCurrentPort(QWidget *) override { note("fill"); }
    void resetFills(QWidget *) override { note("reset fills"); }
    void markCustomCabinets(bool marked) override { note(marked ? "mark" : "unmark"); }
    void chooseType(QWidget *) override { note("type"); }
    void saveParameters(const QList<Cabinet> &records, QWidget *) override { note("parameters", records); }
    void showInformation(const QList<Cabinet> &records, QWidget *) override { note("information", records); }
    void exportConfiguration(const Cabinet &cabinet, QWidget *) override { note("export", {cabinet}); }
    QString connectionRefusal() const override { return refusal; }
    QString connectionRefusal(const QList<Cabinet> &) const override { return refusal; }
    QString exportRefusal(const Cabinet &) const override { return refusal; }
    void readBackConfiguration(const Cabinet &cabinet, QWidget *) override { note("readback", {cabinet}); }
    void setFrameRateAndColorDepth(QWidget *) override { note("frame rate"); }
    void setCanvasSize(QWidget *) override { note("canvas size"); }
    void setCanvasFill(QWidget *) override { note("canvas fill"); }
    void adjustCurrentGain(QWidget *) override { note("gain"); }
    void openTypeLibrary(QWidget *) override { note("library"); }
    void print(QWidget *) override { note("print"); }
    void fillAppendMenu(QMenu &, QWidget *) override { note("append"); }
    bool highlight(const QList<Cabinet> &records, CabinetHighlight kind, QWidget *) override
    {
        note("highlight", records);
        highlighted = kind;
        return highlights;
    }

private:
    void note(const char *call, const QList<Cabinet> &records = {})
    {
        calls << QLatin1String(call);
        cabinets = records;
    }
};
