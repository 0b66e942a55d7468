// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"
#include "platform/widgets/CScrollArea.h"

#include <QVector>

#include <functional>

class QFormLayout;
class QSpinBox;
class QVBoxLayout;

/// The fields for the settings of a print job, or of one of its processors. GUI thread.
class CPrintSettings final : public CScrollArea
{
    Q_OBJECT

public:
    explicit CPrintSettings(QWidget *parent = nullptr);

    /// Which of the fields can be changed.
    enum Fields {
        OfJob,       ///< all
        OfProcessor, ///< all but those that hold for the whole job, such as which sheets there are
        OfNone       ///< none: the processor has the settings of the job
    };

    /// Shows @p config, of which @p fields can be changed, and the address with @p addressed.
    void show(const PrintConfig &config, Fields fields, bool addressed);
    const PrintConfig &config() const { return m_config; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The user has changed something.
    void notifyChanged();

private:
    template <typename Value>
    using Access = std::function<Value &(PrintConfig &)>;
    using Take = std::function<void(PrintConfig &)>;

    void addSheets();
    void addTexts();
    void addPaper();
    void addDrawing();
    void addCables();
    void addPower();
    QFormLayout *addGroup(const QString &title);
    QWidget *addText(QFormLayout &form, const QString &label, const Access<QString> &access);
    void addNotes(QFormLayout &form);
    void addDate(QFormLayout &form);
    void addStock(QFormLayout &form);
    QWidget *addNumber(QFormLayout &form, const QString &label, const QString &unit, int least, int most,
                       const Access<int> &access);
    QWidget *addDecimal(QFormLayout &form, const QString &label, const QString &unit, double least,
                        double most, const Access<double> &access);
    void addFlag(QFormLayout &form, const QString &text, const Access<bool> &access);
    template <typename Value>
    void addChoice(QFormLayout &form, const QString &label, const QStringList &texts,
                   const Access<Value> &access);
    void addScale(QFormLayout &form);
    /// The user changed a field: @p take puts it into the settings.
    void change(const Take &take);
    void updateEnabled();

    PrintConfig m_config;
    bool m_showing = false;
    QVBoxLayout *m_groups = nullptr;
    QVector<std::function<void(PrintConfig &)>> m_fields; ///< each shows its value
    QVector<QWidget *> m_all;                             ///< but the address
    QVector<QWidget *> m_ofJob;                           ///< only for the whole job
    QVector<QWidget *> m_ofCustomPaper;
    QWidget *m_bindingMargin = nullptr;
    QWidget *m_address = nullptr;
    Fields m_fieldsShown = OfJob;
    QSpinBox *m_scale = nullptr;
};
