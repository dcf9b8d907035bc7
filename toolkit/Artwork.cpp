#include "toolkit/Artwork.h"

#include <QResource>

void LoadArtwork()
{
    Q_INIT_RESOURCE(art);
}
