// ScriptSample: whether a face can show the sample texts at all, and a short sample in
// the face's own script when it cannot (a font for another script, a symbol font).
#pragma once

#include "fontfile/fontsystem.h"

#include <QString>
#include <functional>

namespace ScriptSample {

// Characters of a symbol font's sample.
inline constexpr int SymbolSampleLength = 40;

// True when the text holds letters and the face has none of them.
bool lacksLettersOf(const QString& text, const std::function<bool(char32_t)>& faceHas);
// A short text in the face's script: the sample of the first language it covers for
// which one is known and whose characters it all holds; otherwise its first 40
// characters.
QString sampleFor(const FontSystem::Coverage& face);

} // namespace ScriptSample
