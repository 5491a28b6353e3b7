#include "shapes/stretch.h"

#include "framework/enums.h"
#include "platform/automation/arithmetic.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::Negate;
using automation::Subtract;

/// The edges that a pick-up moves, by its number.
constexpr Edges kEdges[] = {
    {Edge::None, Edge::None},    // ePD_None
    {Edge::End, Edge::Start},    // ePD_UpRight
    {Edge::End, Edge::None},     // ePD_Right
    {Edge::End, Edge::End},      // ePD_DownRight
    {Edge::None, Edge::End},     // ePD_Down
    {Edge::Start, Edge::End},    // ePD_LeftDown
    {Edge::Start, Edge::None},   // ePD_Left
    {Edge::Start, Edge::Start},  // ePD_UpLeft
    {Edge::None, Edge::Start},   // ePD_Up
};

void MoveEdge(Edge edge, Long by, Long& start, Long& size) {
  const Long restStart = start;
  const Long restSize = size;
  switch (edge) {
    case Edge::None:
      return;
    case Edge::End:
      if (Negate(by) < restSize) {
        size = Add(restSize, by);
      } else {
        start = Add(Add(restStart, restSize), by);
        size = Subtract(Negate(by), restSize);
      }
      return;
    case Edge::Start:
      if (by < restSize) {
        start = Add(restStart, by);
        size = Subtract(restSize, by);
      } else {
        start = Add(restStart, restSize);
        size = Subtract(by, restSize);
      }
      return;
  }
}

bool HasEdges(Long direction) { return direction >= ePD_UpRight && direction <= ePD_Up; }

}  // namespace

Edges EdgesOf(Long direction) { return kEdges[HasEdges(direction) ? direction : ePD_None]; }

StretchResult Stretched(const Descriptor& rest, Long pDx, Long pDy, Long direction) {
  StretchResult result{rest, HasEdges(direction)};
  if (!result.moved) return result;
  const Edges edges = EdgesOf(direction);
  MoveEdge(edges.x, pDx, result.descriptor.xs, result.descriptor.dx);
  MoveEdge(edges.y, pDy, result.descriptor.ys, result.descriptor.dy);
  return result;
}

}  // namespace quenzel7
