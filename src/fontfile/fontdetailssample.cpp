// FontDetails: the OpenType features and variation axes panes, the live sample they
// re-draw, and the two copy buttons.
#include "fontfile/fontdetails.h"

#include "components/errorreport.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <cmath>

QWidget* FontDetails::buildFeaturesPage()
{
    auto* page = new QWidget(this);
    lstFonctions = new QTreeWidget(page);
    lstFonctions->setObjectName(QStringLiteral("lstFonctions"));
    lstFonctions->setHeaderLabels({QStringLiteral("Étiquette"), QStringLiteral("Fonctionnalité"), QStringLiteral("Table")});
    lstFonctions->setRootIsDecorated(false);
    lstFonctions->setUniformRowHeights(true);
    connect(lstFonctions, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (column == 0)
            ErrorReport::guard([&] { lstFonctions_ItemCheck(item); });
    });
    m_noFeatures = new QLabel(QStringLiteral("Cette face n'offre aucune fonctionnalité OpenType."), page);
    m_noFeatures->setObjectName(QStringLiteral("lblSansFonctions"));
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(m_noFeatures);
    layout->addWidget(lstFonctions, 1);
    return page;
}

QWidget* FontDetails::buildAxesPage()
{
    auto* page = new QWidget(this);
    cboInstances = new QComboBox(page);
    cboInstances->setObjectName(QStringLiteral("cboInstances"));
    cboInstances->setMinimumContentsLength(24);
    cboInstances->setPlaceholderText(QStringLiteral("Position libre")); // between named instances
    ErrorReport::connect(cboInstances, &QComboBox::activated, this, &FontDetails::cboInstances_Click);
    m_noAxes = new QLabel(QStringLiteral("Cette face n'est pas variable."), page);
    m_noAxes->setObjectName(QStringLiteral("lblSansAxes"));
    m_axesBox = new QWidget(page);
    m_axesGrid = new QGridLayout(m_axesBox);
    auto* instances = new QHBoxLayout;
    instances->addWidget(new QLabel(QStringLiteral("Instances nommées :"), page));
    instances->addWidget(cboInstances, 1);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(m_noAxes);
    layout->addLayout(instances);
    layout->addWidget(m_axesBox);
    layout->addStretch(1);
    return page;
}

void FontDetails::fillFeatures()
{
    const QSignalBlocker blocker(lstFonctions);
    lstFonctions->clear();
    for (const auto& feature : std::as_const(m_state.data.features)) {
        auto* item = new QTreeWidgetItem(lstFonctions, {QString::fromLatin1(feature.tag), DetailsFields::featureLabel(feature),
                                                        DetailsFields::featureTables(feature)});
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, m_state.checked.contains(feature.tag) ? Qt::Checked : Qt::Unchecked);
    }
    lstFonctions->resizeColumnToContents(0);
    lstFonctions->resizeColumnToContents(1);
    m_noFeatures->setVisible(m_state.data.features.isEmpty());
    lstFonctions->setVisible(!m_state.data.features.isEmpty());
}

void FontDetails::lstFonctions_ItemCheck(QTreeWidgetItem* Item)
{
    if (!Item)
        return;
    const QByteArray tag = Item->text(0).toLatin1();
    const bool on = Item->checkState(0) == Qt::Checked;
    if (on == m_state.checked.contains(tag))
        return;
    if (on)
        m_state.checked.insert(tag);
    else
        m_state.checked.remove(tag);
    drawSample();
}

// Sliders move in whole steps: tenths for short ranges (slant, optical size), units otherwise.
int FontDetails::axisScale(int axis) const
{
    const auto& info = m_state.data.axes[axis];
    return info.maximum - info.minimum < 100 ? 10 : 1;
}

void FontDetails::clearAxes()
{
    for (QSlider* slider : std::as_const(sldAxe))
        delete slider;
    for (QLabel* label : std::as_const(lblAxe))
        delete label;
    sldAxe.clear();
    lblAxe.clear();
    while (QLayoutItem* item = m_axesGrid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
}

void FontDetails::fillAxes()
{
    clearAxes();
    const auto& axes = m_state.data.axes;
    for (int i = 0; i < axes.size(); ++i) {
        const int scale = axisScale(i);
        auto* label = new QLabel(m_axesBox);
        label->setObjectName(QStringLiteral("lblAxe_%1").arg(i));
        auto* slider = new QSlider(Qt::Horizontal, m_axesBox);
        slider->setObjectName(QStringLiteral("sldAxe_%1").arg(i));
        slider->setRange(int(std::lround(axes[i].minimum * scale)), int(std::lround(axes[i].maximum * scale)));
        slider->setValue(int(std::lround(m_state.axisValues.value(i) * scale)));
        auto* range = new QLabel(QStringLiteral("%1 – %2").arg(DetailsFields::frenchNumber(axes[i].minimum),
                                                                DetailsFields::frenchNumber(axes[i].maximum)), m_axesBox);
        m_axesGrid->addWidget(label, i, 0);
        m_axesGrid->addWidget(slider, i, 1);
        m_axesGrid->addWidget(range, i, 2);
        sldAxe.append(slider);
        lblAxe.append(label);
        connect(slider, &QSlider::valueChanged, this, ErrorReport::guarded([this, i] { sldAxe_Change(i); }));
    }
    for (int i = 0; i < axes.size(); ++i)
        lblAxe[i]->setText(DetailsFields::axisLabel(axes[i]) + QStringLiteral(" : ")
                           + DetailsFields::frenchNumber(m_state.axisValues.value(i)));
    {
        const QSignalBlocker blocker(cboInstances);
        cboInstances->clear();
        for (const auto& instance : std::as_const(m_state.data.instances))
            cboInstances->addItem(instance.name.isEmpty() ? DetailsFields::dash : instance.name);
    }
    showInstanceOfAxes();
    m_noAxes->setVisible(axes.isEmpty());
    cboInstances->setEnabled(!m_state.data.instances.isEmpty());
}

// The named instance the axes sit on, or none.
void FontDetails::showInstanceOfAxes()
{
    int found = -1;
    const auto& instances = m_state.data.instances;
    for (int n = 0; n < instances.size() && found < 0; ++n) {
        bool same = instances[n].coordinates.size() == m_state.axisValues.size();
        for (int a = 0; same && a < m_state.axisValues.size(); ++a)
            same = std::abs(instances[n].coordinates[a] - m_state.axisValues[a]) < 0.5 / axisScale(a);
        if (same)
            found = n;
    }
    const QSignalBlocker blocker(cboInstances);
    cboInstances->setCurrentIndex(found);
    m_state.instance = found >= 0 ? cboInstances->itemText(found) : QString();
}

void FontDetails::sldAxe_Change(int Index)
{
    if (Index < 0 || Index >= sldAxe.size() || Index >= m_state.axisValues.size())
        return;
    m_state.axisValues[Index] = sldAxe[Index]->value() / double(axisScale(Index));
    lblAxe[Index]->setText(DetailsFields::axisLabel(m_state.data.axes[Index]) + QStringLiteral(" : ")
                           + DetailsFields::frenchNumber(m_state.axisValues[Index]));
    showInstanceOfAxes();
    drawSample();
}

void FontDetails::cboInstances_Click()
{
    const int n = cboInstances->currentIndex();
    if (n < 0 || n >= m_state.data.instances.size())
        return;
    const QList<double>& coordinates = m_state.data.instances[n].coordinates;
    for (int i = 0; i < sldAxe.size() && i < coordinates.size(); ++i) {
        m_state.axisValues[i] = coordinates[i];
        const QSignalBlocker blocker(sldAxe[i]);
        sldAxe[i]->setValue(int(std::lround(coordinates[i] * axisScale(i))));
        lblAxe[i]->setText(DetailsFields::axisLabel(m_state.data.axes[i]) + QStringLiteral(" : ")
                           + DetailsFields::frenchNumber(coordinates[i]));
    }
    m_state.instance = cboInstances->itemText(n);
    drawSample();
}

SampleRenderer::Request FontDetails::faceRequest() const
{
    SampleRenderer::Request request;
    request.file = m_state.face.path;
    request.faceIndex = m_state.face.index;
    request.features = DetailsFields::requestedFeatures(m_state.data.features, m_state.checked);
    for (int i = 0; i < m_state.data.axes.size() && i < m_state.axisValues.size(); ++i)
        request.axes.append({m_state.data.axes[i].tag, m_state.axisValues[i]});
    return request;
}

void FontDetails::drawSample()
{
    SampleRenderer::Request request = faceRequest();
    const double ratio = devicePixelRatioF();
    request.text = m_text;
    request.pixelSize = samplePixelSize() * ratio;
    request.foreground = m_foreground;
    request.background = m_background;
    request.margin = int(std::lround(6 * ratio));
    m_sample = request.file.isEmpty() ? SampleRenderer::Result{} : m_renderer.render(request);
    if (m_sample.image.isNull()) {
        picEchantillon->setPixmap(QPixmap());
        picEchantillon->setText(QStringLiteral("Échantillon indisponible pour cette face."));
        return;
    }
    m_sample.image.setDevicePixelRatio(ratio);
    picEchantillon->setPixmap(QPixmap::fromImage(m_sample.image));
}

void FontDetails::cmdCopierCSS_Click()
{
    QApplication::clipboard()->setText(cssText());
}

void FontDetails::cmdCopierRapport_Click()
{
    QApplication::clipboard()->setText(reportText());
}

void FontDetails::cmdFermer_Click()
{
    accept();
}
