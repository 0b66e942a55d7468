// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetWork.h"

#include "layout/printing/figures/SPartsTally.h"
#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/lists/CSheetSet.h"

#include <new>

namespace {

enum EKey { LayOut, Write };

template <typename Value, typename Work>
CResult<Value> withMemory(const Work &work)
{
    try {
        return work();
    } catch (const std::bad_alloc &) {
        return CResult<Value>::failure(CSheetSet::tr("There is not enough memory for the sheets."));
    }
}

} // namespace

CSheetWork::CSheetWork(QObject *parent)
    : QObject(parent)
{
}

CSheetWork::~CSheetWork()
{
    ++m_latest;
    m_cancelled = true;
}

void CSheetWork::forget()
{
    m_thread.RemoveEvent(LayOut);
    ++m_latest;
}

void CSheetWork::layOut(const SPrintInput &input, const SPrintJob &job)
{
    forget();
    const int number = m_latest;
    m_thread.AppendEvent({LayOut, [this, input, job, number] {
                              using Sheets = QVector<SSheet>;
                              QString warning;
                              QVector<QUuid> unfit;
                              const auto sheets = withMemory<Sheets>([&] {
                                  const SPrintPlan plan = SPrintPlan::of(input, job);
                                  warning = SPartsTally::of(plan).warning();
                                  return CSheetSet::of(
                                      plan, [this, number] { return number != m_latest; }, &unfit);
                              });
                              post([this, sheets, warning, unfit, number] {
                                  if (number == m_latest)
                                      Q_EMIT notifyLaidOut(sheets ? sheets.value() : Sheets(), sheets.error(),
                                                           warning, unfit);
                              });
                          }});
    m_thread.ActivateThread();
}

void CSheetWork::run(const Output &output)
{
    m_cancelled = false;
    m_thread.AppendEvent({Write, [this, output] {
                              const auto progress = [this](int done) {
                                  post([this, done] { Q_EMIT notifyProgress(done); });
                                  return !m_cancelled;
                              };
                              const auto names = withMemory<QStringList>([&] { return output(progress); });
                              post([this, names] {
                                  Q_EMIT notifyWritten(names ? names.value() : QStringList(), names.error());
                              });
                          }});
    m_thread.ActivateThread();
}
