// Keeps the luma only.
uniform sampler2D tex0;

void main()
{
    vec4 colour = texture2D(tex0, gl_TexCoord[0].xy);
    gl_FragColor = vec4(vec3(dot(colour.rgb, vec3(0.299, 0.587, 0.114))), colour.a);
}
