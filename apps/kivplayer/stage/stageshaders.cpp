#include "apps/kivplayer/stage/stageshaders.h"

namespace KivPlayer::StageShaders {

// Colours are computed in linear light and encoded at the very end, by one curve that figures, ground and
// backdrop share, so that the ground can fade into the backdrop without a seam.
const char* const kVersion = "#version 120\n";

const char* const kColours = R"(
vec3 encode(vec3 light)
{
    light = clamp(light * (1.0 + light * 0.16) / (1.0 + 0.42 * light), 0.0, 1.0);
    return mix(light * 12.92, 1.055 * pow(light, vec3(1.0 / 2.4)) - 0.055, step(0.0031308, light));
}
// Hides the steps between the 256 shades of a display; the same in every frame.
vec3 dither()
{
    return vec3(fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715)))) - 0.5) / 255.0;
}
vec3 decode(vec3 colour)
{
    return mix(colour / 12.92, pow((colour + 0.055) / 1.055, vec3(2.4)), step(0.04045, colour));
}
uniform vec4 kivPicture;
// A studio wall: lighter behind the figures, darker above and towards the corners. The place is in clip space.
vec3 backdrop(vec2 place)
{
    vec2 position = (place - kivPicture.xy) / kivPicture.zw;
    float height = clamp(0.5 + 0.5 * position.y, 0.0, 1.0);
    vec3 wall = mix(vec3(0.080, 0.095, 0.116), vec3(0.022, 0.031, 0.047), smoothstep(0.10, 1.0, height));
    vec2 fromGlow = (position - vec2(0.0, -0.05)) * vec2(0.75, 0.95);
    wall += vec3(0.105, 0.116, 0.130) * exp(-1.6 * dot(fromGlow, fromGlow));
    return wall * (1.0 - 0.16 * dot(position, position) * 0.5);
}
)";

const char* const kLighting = R"(
uniform vec3 kivKeyDirection;
uniform mat4 kivShadowMatrix;
uniform float kivShadowTexel;
uniform sampler2DShadow kivShadowMap;

const vec3 kKey = vec3(2.15, 1.97, 1.70);
const vec3 kFill = vec3(0.10, 0.135, 0.19);
const vec3 kRim = vec3(0.85, 0.95, 1.10);
const vec3 kSky = vec3(0.27, 0.32, 0.40);
const vec3 kFloorBounce = vec3(0.100, 0.096, 0.094);

// How much of the key light arrives: comparisons over 5 x 5 texels of the finest map, each already smoothed over four
// texels by the driver.
float keyArrives(vec3 world, vec3 normal, float spread)
{
#if KIV_SHADOW_TAPS == 0
    return 1.0;
#else
    vec3 lifted = world + normal * 0.9 + kivKeyDirection * 0.5;
    vec4 place = kivShadowMatrix * vec4(lifted, 1.0);
    if (any(lessThan(place.xyz, vec3(0.0))) || any(greaterThan(place.xyz, vec3(1.0))))
        return 1.0;
    float arrived = 0.0;
    for (int y = 0; y < KIV_SHADOW_TAPS; ++y)
        for (int x = 0; x < KIV_SHADOW_TAPS; ++x) {
            vec2 away = (vec2(x, y) - 0.5 * float(KIV_SHADOW_TAPS - 1)) * (5.0 / float(KIV_SHADOW_TAPS));
            arrived += shadow2D(kivShadowMap, place.xyz + vec3(away * (kivShadowTexel * spread), 0.0)).r;
        }
    return arrived / float(KIV_SHADOW_TAPS * KIV_SHADOW_TAPS);
#endif
}
vec3 ambient(vec3 normal)
{
    return mix(kFloorBounce, kSky, 0.5 + 0.5 * normal.z);
}
)";

const char* const kFigureVertex = R"(#version 120
uniform mat4 osg_ViewMatrixInverse;
varying vec3 worldPosition;
varying vec3 worldNormal;
void main()
{
    vec4 eye = gl_ModelViewMatrix * gl_Vertex;
    worldPosition = (osg_ViewMatrixInverse * eye).xyz;
    worldNormal = mat3(osg_ViewMatrixInverse[0].xyz, osg_ViewMatrixInverse[1].xyz,
                       osg_ViewMatrixInverse[2].xyz) * (gl_NormalMatrix * gl_Normal);
    gl_FrontColor = gl_Color;
    gl_BackColor = gl_Color;
    gl_Position = gl_ProjectionMatrix * eye;
}
)";

const char* const kFigureFragment = R"(
uniform mat4 osg_ViewMatrixInverse;
uniform bool kivUnlit;
uniform bool kivColourFromVertices;
varying vec3 worldPosition;
varying vec3 worldNormal;
void main()
{
    if (kivUnlit) {
        gl_FragColor = gl_Color;
        return;
    }
    vec4 surface = kivColourFromVertices ? gl_Color : gl_Color * gl_FrontMaterial.diffuse;
    vec3 albedo = decode(clamp(surface.rgb, 0.0, 1.0));
    vec3 normal = normalize(worldNormal) * (gl_FrontFacing ? 1.0 : -1.0);
    vec3 toEye = normalize(osg_ViewMatrixInverse[3].xyz - worldPosition);
    vec3 right = osg_ViewMatrixInverse[0].xyz;
    vec3 back = osg_ViewMatrixInverse[2].xyz;

    float towardsKey = dot(normal, kivKeyDirection);
    float arrived = keyArrives(worldPosition, normal, 1.0);
    float wrapped = max((towardsKey + 0.08) / 1.08, 0.0);
    float key = wrapped * mix(1.0, arrived, smoothstep(-0.25, 0.05, towardsKey));
    vec3 fillDirection = normalize(right * 0.85 + back * 0.55 + vec3(0.0, 0.0, 0.15));
    float fill = max(dot(normal, fillDirection) * 0.8 + 0.2, 0.0);
    float low = smoothstep(0.0, 70.0, worldPosition.z);
    vec3 light = kKey * key + kFill * fill + ambient(normal) * mix(0.72, 1.0, low);
    vec3 colour = albedo * light * 0.56;

    vec3 half_ = normalize(kivKeyDirection + toEye);
    float shine = clamp(gl_FrontMaterial.shininess, 4.0, 96.0);
    vec3 specular = decode(clamp(gl_FrontMaterial.specular.rgb, 0.0, 1.0)) + vec3(0.035);
    float fresnel = pow(1.0 - max(dot(normal, toEye), 0.0), 4.0);
    colour += specular * (shine + 8.0) / 26.0 * pow(max(dot(normal, half_), 0.0), shine) * max(towardsKey, 0.0)
              * arrived * kKey * 0.42;
    vec3 rimDirection = normalize(right * 0.55 - back * 0.75 + vec3(0.0, 0.0, 0.55));
    colour += kRim * fresnel * (0.10 + 1.05 * max(dot(normal, rimDirection) + 0.25, 0.0)) * 0.42;
    gl_FragColor = vec4(encode(colour), surface.a);
}
)";

const char* const kGroundVertex = R"(#version 120
uniform mat4 osg_ViewMatrixInverse;
varying vec3 worldPosition;
varying vec3 clipPosition;
void main()
{
    vec4 eye = gl_ModelViewMatrix * gl_Vertex;
    worldPosition = (osg_ViewMatrixInverse * eye).xyz;
    gl_Position = gl_ProjectionMatrix * eye;
    clipPosition = gl_Position.xyw;
}
)";

const char* const kGroundFragment = R"(
uniform mat4 osg_ViewMatrixInverse;
uniform vec3 kivStageCentre;
uniform float kivStageRadius;
uniform float kivGridStep;
uniform bool kivShowGrid;
uniform float kivSampleSize;
uniform mat4 kivFootprintMatrix;
uniform float kivFootprintDepth;
uniform sampler2D kivFootprintMap;
varying vec3 worldPosition;
varying vec3 clipPosition;

// Coverage of lines that are `width` wide and `step_` apart, averaged over the pixel.
float lines(vec2 place, float step_, float width)
{
    vec2 cell = place / step_;
    vec2 pixel = max(fwidth(cell) * kivSampleSize, vec2(1e-5));
    vec2 half_ = vec2(0.5 * width / step_);
    vec2 away = abs(fract(cell - 0.5) - 0.5);
    vec2 covered = clamp((half_ + 0.5 * pixel - away) / pixel, 0.0, 1.0) * min(vec2(1.0), 2.0 * half_ / pixel);
    vec2 crowded = smoothstep(vec2(0.2), vec2(0.6), pixel);
    covered = mix(covered, 2.0 * half_, crowded);
    return max(covered.x, covered.y);
}
#ifdef KIV_NEAR_FIGURES
// What the figures above take of the light from the sky: their height over the points around, as seen from below.
float skyArrives(vec3 world)
{
    vec4 place = kivFootprintMatrix * vec4(world, 1.0);
    if (any(lessThan(place.xy, vec2(0.0))) || any(greaterThan(place.xy, vec2(1.0))))
        return 1.0;
    float unit = kivFootprintMatrix[0][0];
    float taken = 0.0;
    float most = 0.0;
    for (int ring = 0; ring < 4; ++ring) {
        float radius = 2.5 + 5.5 * float(ring) + 1.6 * float(ring * ring);
        float weight = 1.0 / (1.0 + 0.06 * radius);
        for (int i = 0; i < KIV_SKY_TAPS; ++i) {
            float angle = 6.2831853 * (float(i) + 0.5 * float(ring)) / float(KIV_SKY_TAPS);
            vec2 at = place.xy + vec2(cos(angle), sin(angle)) * (radius * unit);
            float height = texture2D(kivFootprintMap, at).r * kivFootprintDepth;
            float near = max(1.0 - height / (14.0 + 1.2 * radius), 0.0);
            taken += weight * near;
            most += weight;
        }
    }
    return 1.0 - min(0.95, 1.9 * taken / most);
}
#endif
void main()
{
    vec2 away = worldPosition.xy - kivStageCentre.xy;
    vec3 wall = backdrop(clipPosition.xy / clipPosition.z);
    float fade = smoothstep(kivStageRadius * 0.9, kivStageRadius * 4.2, length(away));
    vec3 colour = wall;
    if (fade < 1.0) {
        vec3 up = vec3(0.0, 0.0, 1.0);
        vec3 floor_ = vec3(0.100, 0.108, 0.120);
        if (kivShowGrid) {
            float fine = lines(worldPosition.xy, kivGridStep * 0.2, kivGridStep * 0.0045);
            float coarse = lines(worldPosition.xy, kivGridStep, kivGridStep * 0.010);
            floor_ = mix(floor_, vec3(0.235, 0.250, 0.270), 0.42 * fine);
            floor_ = mix(floor_, vec3(0.330, 0.350, 0.380), 0.62 * coarse);
        }
#ifdef KIV_NEAR_FIGURES
        float sky = skyArrives(worldPosition);
        float arrived = keyArrives(worldPosition, up, 2.6);
#else
        float sky = 1.0;
        float arrived = 1.0;
#endif
        float key = max(kivKeyDirection.z, 0.0) * arrived * mix(0.45, 1.0, sky);
        vec3 toEye = normalize(osg_ViewMatrixInverse[3].xyz - worldPosition);
        colour = floor_ * (kKey * key + kSky * 1.15 * sky) * 0.80;
        float grazing = pow(1.0 - clamp(toEye.z, 0.0, 1.0), 3.0);
        colour = mix(colour, wall, 0.25 * grazing * arrived);
        colour = mix(colour, wall, fade);
    }
    gl_FragColor = vec4(encode(colour) + dither(), 1.0);
}
)";

const char* const kBackdropVertex = R"(#version 120
varying vec2 position;
void main()
{
    position = gl_Vertex.xy;
    gl_Position = vec4(gl_Vertex.xy, 1.0, 1.0);
}
)";

const char* const kBackdropFragment = R"(
varying vec2 position;
void main()
{
    gl_FragColor = vec4(encode(backdrop(position)) + dither(), 1.0);
}
)";

// What casts no shadow goes beyond the far plane: to discard its fragments would cost all others their early
// test.
const char* const kDepthVertex = R"(#version 120
uniform bool kivCastsNoShadow;
void main()
{
    gl_Position = kivCastsNoShadow ? vec4(0.0, 0.0, 2.0, 1.0) : gl_ModelViewProjectionMatrix * gl_Vertex;
}
)";

const char* const kDepthFragment = R"(#version 120
void main()
{
    gl_FragColor = vec4(1.0);
}
)";

}  // namespace KivPlayer::StageShaders
