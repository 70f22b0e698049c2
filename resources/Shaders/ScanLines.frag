// Darkens every other line of the picture.
uniform sampler2D tex0;
uniform vec2 tex0Dimensions;

void main()
{
    vec4 colour = texture2D(tex0, gl_TexCoord[0].xy);
    float line = mod(floor(gl_TexCoord[0].y * tex0Dimensions.y), 2.0);
    gl_FragColor = vec4(colour.rgb * (1.0 - 0.3 * line), colour.a);
}
