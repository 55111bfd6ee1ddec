// The seven coordinate units of a drawing surface and their conversion from device
// pixels. Codes follow the unit menu: 1 twip ... 7 centimetre.
#pragma once

namespace ScaleMode {

enum Code : int {
    Twip = 1,
    Point = 2,
    Pixel = 3,
    Character = 4, // 120 twips wide, 240 twips high
    Inch = 5,
    Millimetre = 6,
    Centimetre = 7,
};

inline bool isValid(int code) { return code >= Twip && code <= Centimetre; }

// Converts a distance in device pixels, on a surface of `dpi` pixels per inch, to the
// unit `code`. `vertical` matters only for the character unit. An invalid code gives
// pixels.
double fromDevicePixels(double pixels, double dpi, int code, bool vertical);

} // namespace ScaleMode
