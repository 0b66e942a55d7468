// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CNewProjectDialog.h"

#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/geometry/CSnakeOrder.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

void addTypes(QComboBox &box, const QVector<CTypeLibrary::STreeNode> &nodes)
{
    for (const CTypeLibrary::STreeNode &node : nodes) {
        if (node.isFolder())
            addTypes(box, node.children);
        else
            box.addItem(node.name, QVariant::fromValue(node.info));
    }
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
    m_summary->setMinimumHeight(3 * m_summary->fontMetrics().lineSpacing());
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

void CNewProjectDialog::updateSummary()
{
    const SWallPlan wall = plan();
    const QSize canvas = wall.canvas();
    QString problem;
    if (m_name->text().trimmed().isEmpty())
        problem = tr("The project needs a name.");
    else if (!LayoutLimits::isCanvasSize(canvas))
        problem = tr("The wall would be %1 × %2 pixels, the most is %3 × %4.")
                      .arg(canvas.width())
                      .arg(canvas.height())
                      .arg(LayoutLimits::WidestCanvas)
                      .arg(LayoutLimits::TallestCanvas);
    else if (wall.cabinetCount() > qint64(wall.ports) * LayoutLimits::CabinetsPerPort)
        problem = tr("%1 cabinets need more ports: one carries %2 at the most.")
                      .arg(wall.cabinetCount())
                      .arg(LayoutLimits::CabinetsPerPort);
    const SProcessorKind *kind = m_kinds.withPorts(wall.ports);
    const QString summary = tr("Cabinets: %1, canvas: %2 × %3 pixels, processor: %4")
                                .arg(wall.cabinetCount())
                                .arg(canvas.width())
                                .arg(canvas.height())
                                .arg(kind ? kind->name : tr("unknown"));
    m_summary->setText(problem.isEmpty() ? summary : problem);
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(problem.isEmpty());
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
    const SProcessorKind *kind = m_kinds.withPorts(wall.ports);
    m_project = SProcessorProject::ofPlan(wall, layout.value());
    m_project.name = m_name->text().trimmed();
    m_project.kind = kind ? kind->id : QString();
    CDialog::accept();
}
