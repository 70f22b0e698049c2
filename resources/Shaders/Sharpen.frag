// Raises each pixel against the mean of its four neighbours.
uniform sampler2D tex0;
uniform vec2 tex0TexelDimensions;

void main()
{
    vec2 at = gl_TexCoord[0].xy;
    vec2 dx = vec2(tex0TexelDimensions.x, 0.0);
    vec2 dy = vec2(0.0, tex0TexelDimensions.y);
    vec4 centre = texture2D(tex0, at);
    vec4 mean = 0.25 * (texture2D(tex0, at - dx) + texture2D(tex0, at + dx) + texture2D(tex0, at - dy) +
                        texture2D(tex0, at + dy));
    gl_FragColor = vec4(clamp(centre.rgb + 0.6 * (centre.rgb - mean.rgb), 0.0, 1.0), centre.a);
}
