// By layer, by block and layer "0": the rules by which a primitive gets its look.
#include "GiStyleCache.h"

GiStyleCache::GiStyleCache(const GiStyleResolver& resolver)
    : mResolver(resolver), mDrawingScale(resolver.lineTypeScale()), mDefaultWeight(resolver.defaultLineWeight()) {}

const GiStyleCache::Layer& GiStyleCache::layerOf(AcDbObjectId id) {
    const auto found = mLayers.find(id);
    if (found != mLayers.end())
        return found->second;
    const Layer layer{mResolver.isVisible(id), mResolver.isFrozen(id), id.isNull() || mResolver.isLayerZero(id),
                      mResolver.layerColor(id), mResolver.layerLineWeight(id), mResolver.layerLineType(id)};
    return mLayers.emplace(id, layer).first->second;
}

const GiStyleCache::LineType& GiStyleCache::lineTypeOf(AcDbObjectId id) {
    const auto found = mLineTypes.find(id);
    if (found != mLineTypes.end())
        return found->second;
    LineType type{id.isNull() || mResolver.isByLayerLineType(id), !id.isNull() && mResolver.isByBlockLineType(id), {}};
    if (!type.byLayer && !type.byBlock)
        type.dashes = mResolver.dashes(id);
    return mLineTypes.emplace(id, std::move(type)).first->second;
}

AcDbObjectId GiStyleCache::layerFor(const GiTraits& traits, const GiInherited& from) {
    return from.inside && layerOf(traits.layer).zero ? from.layer : traits.layer;
}

GiInherited GiStyleCache::handDown(const GiTraits& traits, const GiInherited& from) {
    GiInherited result;
    result.inside = true;
    result.layer = layerFor(traits, from);
    const Layer& layer = layerOf(result.layer);
    result.color = traits.color.isByBlock() ? from.color : traits.color.isByLayer() ? layer.color : traits.color;
    result.lineWeight = traits.lineWeight == AcDb::kLnWtByBlock   ? from.lineWeight
                        : traits.lineWeight == AcDb::kLnWtByLayer ? layer.lineWeight
                                                                  : traits.lineWeight;
    const LineType& type = lineTypeOf(traits.lineType);
    result.lineType = type.byBlock ? from.lineType : type.byLayer ? layer.lineType : traits.lineType;
    result.lineTypeScale = type.byBlock ? traits.lineTypeScale * from.lineTypeScale : traits.lineTypeScale;
    return result;
}

bool GiStyleCache::hidesAll(const GiTraits& traits, const GiInherited& from) {
    return layerOf(layerFor(traits, from)).frozen;
}

const GiStyle* GiStyleCache::style(const GiTraits& traits, const GiInherited& from, AcDbObjectId owner) {
    if (!layerOf(layerFor(traits, from)).visible)
        return nullptr;
    const GiInherited own = handDown(traits, from);
    const AcCmEntityColor& color = own.color;
    mStyle.rgb = color.isByColor() ? static_cast<Adesk::UInt32>((color.red() << 16) | (color.green() << 8) | color.blue())
                                   : acgiPaletteRgb(color.colorIndex());
    mStyle.foreground = !color.isByColor() && mStyle.rgb == 0xFFFFFF && color.colorIndex() != 255;
    mStyle.lineWeight = own.lineWeight < 0 ? mDefaultWeight : own.lineWeight;
    mStyle.owner = owner;
    setDashes(own.lineType, own.lineTypeScale * mDrawingScale);
    return &mStyle;
}

void GiStyleCache::setDashes(AcDbObjectId lineType, double scale) {
    if (lineType == mDashesOf && scale == mDashesScale)
        return;
    mDashesOf = lineType;
    mDashesScale = scale;
    mStyle.dashes = lineTypeOf(lineType).dashes;
    for (double& dash : mStyle.dashes)
        dash *= scale;
}
