// CLogFont: a font description plus a rotation turned into a font object that draws
// rotated text. It owns that object: made when the description or the angle changes,
// deleted when replaced or when the CLogFont ends.
#pragma once

#include "components/stdfont.h"
#include "samples/logfontrecord.h"

#include <QFont>
#include <memory>
#include <optional>

class CLogFont {
public:
    CLogFont();
    ~CLogFont();
    CLogFont(const CLogFont&) = delete;
    CLogFont& operator=(const CLogFont&) = delete;

    // The held copy of the description, or nullptr when none is held.
    const StdFont* LogFont() const;
    // Deletes the current font object; nullptr empties the description, anything else
    // is copied property by property and a new font object is made from the copy.
    void setLogFont(const StdFont* font);

    // Degrees, counter-clockwise.
    float Rotation() const { return m_rotation; }
    // A different angle replaces the font object (when a description is held); the
    // same angle changes nothing.
    void setRotation(float degrees);

    // Non-zero identity of the current font object, 0 when there is none. Never reused.
    quintptr Handle() const;
    // The record the current font object was made from (all zero when there is none).
    const LOGFONT& Record() const { return m_record; }
    // The current font object: the face, pixel size and styles of the record.
    const QFont* HandleFont() const;
    // The angle the current font object draws at, in degrees counter-clockwise, from
    // the record's escapement; multiples of 360 give 0.
    double HandleAngle() const;

    // Pixels per logical inch of the primary screen, vertically.
    static int PixelsPerInch();
    // Font objects alive in the program, for checking that none is left behind.
    static int LiveHandles();

private:
    struct FontObject;
    void createHandle();
    void deleteHandle();

    std::optional<StdFont> m_font;
    float m_rotation = 0.0f;
    std::unique_ptr<FontObject> m_handle;
    LOGFONT m_record{};
};
