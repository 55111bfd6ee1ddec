// Device pixels to the seven scale units.
#include "components/scalemode.h"

namespace ScaleMode {

double fromDevicePixels(double pixels, double dpi, int code, bool vertical)
{
    if (dpi <= 0)
        return pixels;
    const double inches = pixels / dpi;
    switch (code) {
    case Twip: return inches * 1440.0;
    case Point: return inches * 72.0;
    case Character: return inches * 1440.0 / (vertical ? 240.0 : 120.0);
    case Inch: return inches;
    case Millimetre: return inches * 25.4;
    case Centimetre: return inches * 2.54;
    default: return pixels;
    }
}

} // namespace ScaleMode
