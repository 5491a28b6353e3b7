#include "bench/canvas.h"
#ifdef QUENZEL7_HAVE_CAIRO
#include "bench/cairo_canvas.h"
#endif
#ifdef QUENZEL7_HAVE_QT
#include "bench/qt_canvas.h"
#include "bench/qt_hits.h"
#endif

namespace quenzel7::bench {

std::vector<Peer> Peers() {
  Peer cairo{"cairo", {}, {}}, qt{"Qt", {}, {}};
#ifdef QUENZEL7_HAVE_CAIRO
  cairo.make = MakeCairoCanvas;
#endif
#ifdef QUENZEL7_HAVE_QT
  qt.make = MakeQtCanvas;
  qt.countHits = CountQtHits;
#endif
  return {cairo, qt};
}

}  // namespace quenzel7::bench
