#include "maps/map_view.h"

#include "base/rounding.h"

static void ArrangeWithBoth(MapView& view, Size client, Size map)
{
    auto const& viewport = view.viewport
        = { client.width - mapBarThickness, client.height - mapBarThickness };
    view.vertical.max = RoundToInt16(map.height - viewport.height);
    view.horizontal.max = RoundToInt16(map.width - viewport.width);
    view.vertical.length = viewport.height;
    view.horizontal.length = viewport.width + 2;
    view.hasCorner = true;
}

static void ArrangeWithHorizontal(MapView& view, Size client, Size map)
{
    view.viewport = { client.width, client.height - mapBarThickness };
    view.horizontal.max = RoundToInt16(map.width - client.width);
    view.horizontal.length = client.width - 1;
    view.mapTop = (view.viewport.height - map.height) / 2;
}

static void ArrangeWithVertical(MapView& view, Size client, Size map)
{
    view.viewport = { client.width - mapBarThickness, client.height };
    view.mapLeft = (view.viewport.width - map.width) / 2;
    view.vertical.max = RoundToInt16(map.height - client.height);
    view.vertical.length = client.height - 1;
}

static void ArrangeWithoutBars(MapView& view, Size client, Size map)
{
    view.viewport = client;
    view.mapLeft = (client.width - map.width) / 2;
    view.mapTop = (client.height - map.height) / 2;
}

MapView ArrangeMap(Size client, Size map)
{
    // of the views before and after a step by the trough or an arrow key
    constexpr float overlap = 20;
    MapView view;
    view.horizontal.largeChange = RoundToInt16(client.width - overlap);
    view.vertical.largeChange
        = client.height > overlap ? RoundToInt16(client.height - overlap) : std::int16_t { 1 };
    view.vertical.isVisible = client.height - mapBarThickness < map.height;
    view.horizontal.isVisible = client.width - mapBarThickness < map.width;
    if (view.horizontal.isVisible && view.vertical.isVisible && client.height > mapBarThickness)
        ArrangeWithBoth(view, client, map);
    else if (view.horizontal.isVisible && !view.vertical.isVisible)
        ArrangeWithHorizontal(view, client, map);
    else if (view.vertical.isVisible && !view.horizontal.isVisible)
        ArrangeWithVertical(view, client, map);
    else
        ArrangeWithoutBars(view, client, map);
    view.viewport.height += 1;
    view.viewport.width += 1;
    return view;
}
