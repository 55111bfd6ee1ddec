// DetailsFields: what the details window shows, as labelled texts built from a face's
// data and the user's choices, so that the window, the report and the CSS say the same.
#pragma once

#include "fontfile/facetables.h"
#include "fontfile/fontsystem.h"
#include "fontfile/samplerenderer.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace DetailsFields {

// Shown for every field the face does not have.
inline const QString dash = QStringLiteral("—");

struct Field {
    QString label;
    QString value;
    QString points;        // the value in points at the sample's size; empty when not a length
    QString link;          // the address the value opens, for URLs
    QStringList children;  // lines shown under the field
};

QList<Field> identityFields(const FaceTables::FaceData& data);
QList<Field> metricFields(const FaceTables::FaceData& data, double points);

// The faces list: its headers, one row's texts, fontconfig's faces in display order,
// and the row to select first (the most regular face).
QStringList faceHeaders();
QStringList faceColumns(const FontSystem::FamilyFace& face);
QList<FontSystem::FamilyFace> sortedFaces(QList<FontSystem::FamilyFace> faces);
int regularFace(const QList<FontSystem::FamilyFace>& faces);

// "Jeu stylistique 1 : Chiffres ouverts" for a set the font names; the French name, or
// the tag alone when the tag is not registered.
QString featureLabel(const FaceTables::Feature& feature);
QString featureTables(const FaceTables::Feature& feature); // "GSUB", "GPOS" or "GSUB, GPOS"
// The features on by default, which start checked.
QSet<QByteArray> defaultChecked(const QList<FaceTables::Feature>& features);
// What the shaper must be told: checked features that are off by default (value 1), and
// features on by default that are unchecked (value 0), in the face's order.
QList<SampleRenderer::Feature> requestedFeatures(const QList<FaceTables::Feature>& features,
                                                 const QSet<QByteArray>& checked);

// "Graisse (wght)", or the font's own name, or the tag.
QString axisLabel(const FaceTables::Axis& axis);
// A coordinate as CSS writes it: "650", "12.5", "-10".
QString cssNumber(double value);
// A number in French: "12,07", "-11,5".
QString frenchNumber(double value, int decimals = 2);

// Everything the window's state is made of, for the CSS and the report.
struct State {
    QString family;
    double points = 13;
    FontSystem::FamilyFace face;
    FaceTables::FaceData data;
    QSet<QByteArray> checked;
    QList<double> axisValues;   // one per axis
    QString instance;           // the named instance the sliders sit on, if any
};

QString cssText(const State& state);
QString reportText(const State& state, const QList<FontSystem::FamilyFace>& faces);

} // namespace DetailsFields
