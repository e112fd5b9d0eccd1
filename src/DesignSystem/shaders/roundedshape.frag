#version 440

// A rounded rectangle with an anti-aliased edge worked out from its distance field, so it needs no
// off-screen mask. Built twice: filled with a texture's pixels, and, with OUTLINE, as a ring of
// `stroke` pixels in a vertical gradient.

layout(location = 0) in vec2 qt_TexCoord0;
layout(location = 0) out vec4 fragColor;

layout(std140, binding = 0) uniform buf {
    mat4 qt_Matrix;
    float qt_Opacity;
    vec2 size;
    float radius;
#ifdef OUTLINE
    float stroke;
    vec4 topColor;
    vec4 bottomColor;
#endif
};

#ifndef OUTLINE
layout(binding = 1) uniform sampler2D source;
#endif

// Negative inside the shape, zero on its edge, in pixels.
float edgeDistance(vec2 point, vec2 halfSize, float cornerRadius)
{
    vec2 beyondCorner = abs(point) - halfSize + cornerRadius;
    return length(max(beyondCorner, 0.0)) + min(max(beyondCorner.x, beyondCorner.y), 0.0) - cornerRadius;
}

void main()
{
    float cornerRadius = min(radius, 0.5 * min(size.x, size.y));
    float distance = edgeDistance((qt_TexCoord0 - 0.5) * size, 0.5 * size, cornerRadius);
    float coverage = clamp(0.5 - distance, 0.0, 1.0);
#ifdef OUTLINE
    coverage *= clamp(distance + stroke + 0.5, 0.0, 1.0);
    vec4 colour = mix(topColor, bottomColor, qt_TexCoord0.y);
#else
    vec4 colour = texture(source, qt_TexCoord0);
#endif
    fragColor = colour * (coverage * qt_Opacity);
}
