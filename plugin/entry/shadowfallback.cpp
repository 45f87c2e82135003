#include "shadowfallback.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

int RegisterWithShadowFallback(unsigned style, const char* failureFormat, CLASSREGISTRAR registrar, void* context)
{
    unsigned long error = 0;
    if (registrar(style, context, &error))
        return 1;
    unsigned long secondError = 0;
    if (!registrar(style & ~CLASSSTYLE_DROPSHADOW, context, &secondError))
        return 0;
    Trace(failureFormat, (int)error);
    return 1;
}
