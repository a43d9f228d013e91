#include <cstdio>
#include <cstdlib>

#include "Vantry/app/VantryApplication.h"
#include "Vantry/interface/design/VantryStyle.h"
#include "Vantry/interface/design/VantryType.h"
#include "gallery/Gallery.h"

int main(int argc, char** argv) {
    vantry::VantryApplication application(argc, argv);
    if (!vantry::VantryType::registerFonts(QCoreApplication::applicationDirPath() +
                                           QStringLiteral("/Vantry_Vantry.rcc"))) {
        std::fputs("unable to find bundle named Vantry_Vantry\n", stderr);
        return EXIT_FAILURE;
    }
    vantry::VantryStyle::install();
    vantry::gallery::Gallery gallery;
    gallery.show();
    return QCoreApplication::exec();
}
