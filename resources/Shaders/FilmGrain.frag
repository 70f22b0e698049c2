// Adds noise that is new for each picture.
uniform sampler2D tex0;
uniform float random;

void main()
{
    vec4 colour = texture2D(tex0, gl_TexCoord[0].xy);
    float noise = fract(sin(dot(gl_TexCoord[0].xy + random, vec2(12.9898, 78.233))) * 43758.5453);
    gl_FragColor = vec4(clamp(colour.rgb + 0.12 * (noise - 0.5), 0.0, 1.0), colour.a);
}
