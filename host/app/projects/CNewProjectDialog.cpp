// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/projects/CNewProjectDialog.h"

#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/api/records/LoadSum.h"
#include "layout/geometry/CSnakeOrder.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/ThemeColors.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int UsualSummaryLines = 4;

void addTypes(QComboBox &box, const QVector<CTypeLibrary::STreeNode> &nodes)
{
    for (const CTypeLibrary::STreeNode &node : nodes) {
        if (node.isFolder())
            addTypes(box, node.children);
        else
            box.addItem(node.name, QVariant::fromValue(node.info));
    }
}

/// The load of the fullest port: what a new wall has if all ports get the same share.
SPortLoad largestShare(const SWallPlan &wall, const SProcessorKind &kind)
{
    const qint64 cabinet = qint64(wall.cabinet.width()) * wall.cabinet.height();
    const qint64 most = (wall.cabinetCount() + wall.ports - 1) / wall.ports;
    return CPortCapacity::load(kind, {}, most * cabinet, wall.cabinetCount() * cabinet);
}

} // namespace

CNewProjectDialog::CNewProjectDialog(const CProcessorKinds &kinds, QWidget *parent)
    : CDialog(tr("New project"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_kinds(kinds)
{
    buildUi();
    connectSignals();
    updateSummary();
}

void CNewProjectDialog::buildUi()
{
    auto *form = new QFormLayout;
    contentLayout()->addLayout(form);
    m_name = new QLineEdit(tr("New wall"));
    m_name->setObjectName(QStringLiteral("Name"));
    m_name->setMaxLength(64);
    m_name->setFocus();
    m_name->selectAll();
    form->addRow(tr("&Name"), m_name);
    buildCabinetRows(*form);
    buildWallRows(*form);
    m_summary = new QLabel;
    m_summary->setObjectName(QStringLiteral("Summary"));
    m_summary->setWordWrap(true);
    m_summary->setMinimumWidth(320);
    m_summary->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    contentLayout()->addWidget(m_summary);
}

void CNewProjectDialog::buildCabinetRows(QFormLayout &form)
{
    m_type = new QComboBox;
    m_type->setObjectName(QStringLiteral("CabinetType"));
    m_type->addItem(tr("Custom size"));
    addTypes(*m_type, CTypeLibrary::builtIn().nodes());
    form.addRow(tr("Cabinet &type"), m_type);
    m_width = addNumber(form, tr("Cabinet &width"), "CabinetWidth", LayoutLimits::SmallestCustomSide,
                        LayoutLimits::LargestSide, 192);
    m_height = addNumber(form, tr("Cabinet &height"), "CabinetHeight", LayoutLimits::SmallestCustomSide,
                         LayoutLimits::LargestSide, 192);
    m_width->setSuffix(tr(" px"));
    m_height->setSuffix(tr(" px"));
}

void CNewProjectDialog::buildWallRows(QFormLayout &form)
{
    m_columns = addNumber(form, tr("&Columns"), "Columns", 1, LayoutLimits::WidestCanvas, 8);
    m_rows = addNumber(form, tr("&Rows"), "Rows", 1, LayoutLimits::TallestCanvas, 6);
    m_ports = addNumber(form, tr("Output &ports"), "Ports", 1, CWallBuilder::MaximumPorts, 4);
    m_redundancy = new QCheckBox(tr("A re&dundancy port for each"));
    m_redundancy->setObjectName(QStringLiteral("Redundancy"));
    form.addRow(QString(), m_redundancy);
    m_pattern = new QComboBox;
    m_pattern->setObjectName(QStringLiteral("Pattern"));
    m_pattern->setIconSize({40, 28});
    for (const CSnakeOrder::SPattern &pattern : CSnakeOrder::patterns()) {
        const QIcon icon(
            QStringLiteral(":/Image/Layout/SidePanel/Topology/%1.svg").arg(QLatin1String(pattern.iconName)));
        m_pattern->addItem(icon, tr(pattern.name));
    }
    form.addRow(tr("W&iring"), m_pattern);
}

QSpinBox *CNewProjectDialog::addNumber(QFormLayout &form, const QString &label, const char *objectName,
                                       int minimum, int maximum, int value)
{
    auto *box = new CSpinBox;
    box->setObjectName(QLatin1String(objectName));
    box->setRange(minimum, maximum);
    box->setValue(value);
    form.addRow(label, box);
    return box;
}

void CNewProjectDialog::connectSignals()
{
    connect(m_type, qOverload<int>(&QComboBox::activated), this, &CNewProjectDialog::onTypeChosen);
    connect(m_name, &QLineEdit::textChanged, this, &CNewProjectDialog::updateSummary);
    connect(m_redundancy, &QCheckBox::toggled, this, &CNewProjectDialog::updateSummary);
    for (QSpinBox *box : {m_width, m_height})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &CNewProjectDialog::onSizeEdited);
    for (QSpinBox *box : {m_columns, m_rows, m_ports})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &CNewProjectDialog::updateSummary);
}

void CNewProjectDialog::onTypeChosen()
{
    const auto type = m_type->currentData().value<CTypeLibrary::RcvTypeInfo>();
    if (!type.isValid())
        return;
    const QSignalBlocker widthBlocker(m_width);
    const QSignalBlocker heightBlocker(m_height);
    m_width->setValue(type.width);
    m_height->setValue(type.height);
    updateSummary();
}

void CNewProjectDialog::onSizeEdited()
{
    m_type->setCurrentIndex(0); // a custom size
    updateSummary();
}

const SProcessorKind *CNewProjectDialog::kindFor(const SWallPlan &wall) const
{
    return m_kinds.withPorts(wall.portCount(), wall.redundancy);
}

QString CNewProjectDialog::problemOf(const SWallPlan &wall) const
{
    const QSize canvas = wall.canvas();
    if (m_name->text().trimmed().isEmpty())
        return tr("The project needs a name.");
    if (!LayoutLimits::isCanvasSize(canvas))
        return tr("The wall would be %1 × %2 pixels, the most is %3 × %4.")
            .arg(canvas.width())
            .arg(canvas.height())
            .arg(LayoutLimits::WidestCanvas)
            .arg(LayoutLimits::TallestCanvas);
    if (wall.cabinetCount() > qint64(wall.ports) * LayoutLimits::CabinetsPerPort)
        return tr("%1 cabinets need more ports: one carries %2 at the most.")
            .arg(wall.cabinetCount())
            .arg(LayoutLimits::CabinetsPerPort);
    if (!kindFor(wall))
        return tr("No processor has %1 output ports.").arg(wall.portCount());
    return CWallBuilder::problemOf(wall);
}

void CNewProjectDialog::updateSummary()
{
    const SWallPlan wall = plan();
    const QString problem = problemOf(wall);
    showSummary(wall, problem);
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(problem.isEmpty());
}

void CNewProjectDialog::showSummary(const SWallPlan &wall, const QString &problem)
{
    QStringList lines{problem};
    bool wrong = !problem.isEmpty();
    if (!wrong) {
        const SProcessorKind &kind = *kindFor(wall);
        const SPortLoad load = largestShare(wall, kind);
        lines = QStringList{tr("Cabinets: %1, canvas: %2 × %3 pixels, processor: %4, load of a port: %5%")
                                .arg(wall.cabinetCount())
                                .arg(wall.canvas().width())
                                .arg(wall.canvas().height())
                                .arg(kind.name)
                                .arg(load.percent)};
        wrong = load.percent > 100;
        if (wrong)
            lines += LoadSum::sentences(load);
    }
    QPalette colors;
    if (wrong)
        colors.setColor(QPalette::WindowText, QColor(ThemeColors::Fault));
    m_summary->setPalette(colors);
    m_summary->setText(lines.join(QLatin1Char('\n')));
    const int usual = UsualSummaryLines * m_summary->fontMetrics().lineSpacing();
    m_summary->setMinimumHeight(
        std::max(usual, m_summary->heightForWidth(m_summary->width()))); // the dialog grows
}

/// Asks the user if @p layout exceeds what can be driven.
bool CNewProjectDialog::mayExceed(const SWallPlan &wall, const CabinetLayout &layout)
{
    const QMap<int, SPortLoad> loads = CPortCapacity::loads(*kindFor(wall), {}, layout, 0);
    const auto fullest =
        std::max_element(loads.begin(), loads.end(),
                         [](const SPortLoad &a, const SPortLoad &b) { return a.percent < b.percent; });
    if (fullest == loads.end() || fullest->percent <= 100)
        return true;
    const QStringList details{tr("Port %1: %2%").arg(fullest.key() + 1).arg(fullest->percent)};
    return CMessageBox::confirm(this, tr("The wall exceeds what can be driven. Make it?"),
                                (details + LoadSum::sentences(*fullest)).join(QLatin1Char('\n')));
}

SWallPlan CNewProjectDialog::plan() const
{
    const auto type = m_type->currentData().value<CTypeLibrary::RcvTypeInfo>();
    SWallPlan plan;
    plan.name = QUuid::createUuid().toString(); // equal walls must have different identities
    plan.cabinet = {m_width->value(), m_height->value()};
    plan.columns = m_columns->value();
    plan.rows = m_rows->value();
    plan.ports = m_ports->value();
    plan.redundancy = m_redundancy->isChecked();
    plan.pattern = m_pattern->currentIndex();
    plan.type = type.key;
    plan.rects = type.receivers;
    return plan;
}

void CNewProjectDialog::accept()
{
    const SWallPlan wall = plan();
    const CResult<CabinetLayout> layout = CWallBuilder::build(wall);
    if (!layout) {
        m_summary->setText(layout.error());
        return;
    }
    if (!mayExceed(wall, layout.value()))
        return;
    const SProcessorKind *kind = kindFor(wall);
    m_project = SProcessorProject::ofPlan(wall, layout.value());
    m_project.name = m_name->text().trimmed();
    m_project.kind = kind ? kind->id : QString();
    CDialog::accept();
}
