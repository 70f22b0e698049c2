/* Reads a stream with libmms, a client that knows nothing of ours, and writes it to a file.
 *   mms_reader ADDRESS SECONDS FILE
 * Status 0 when header and packets came for so many seconds; 1 when the stream could not be opened, 2 when it ended
 * before. */
#include <libmms/mmsx.h>

#include <stdio.h>
#include <stdlib.h>
#include <time.h>

static double now(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec / 1e9;
}

int main(int argc, char** argv)
{
    if (argc != 4)
        return fprintf(stderr, "mms_reader ADDRESS SECONDS FILE\n"), 1;
    FILE* const file = fopen(argv[3], "wb");
    if (!file)
        return perror(argv[3]), 1;
    mmsx_t* const stream = mmsx_connect(NULL, NULL, argv[1], 10 * 1000 * 1000);
    if (!stream)
        return fprintf(stderr, "cannot open %s\n", argv[1]), 1;

    /* What libmms sent us in one piece may stay in one: header, then packets. */
    int const packet = (int)mmsx_get_asf_packet_len(stream);
    int const header = (int)mmsx_get_asf_header_len(stream);
    char* const buffer = malloc((size_t)(packet > header ? packet : header));
    double const end = now() + atof(argv[2]);
    int status = 0;
    for (int size = header; now() < end; size = packet) {
        if (mmsx_read(NULL, stream, buffer, size) != size) {
            fprintf(stderr, "the stream has ended\n");
            status = 2;
            break;
        }
        fwrite(buffer, 1, (size_t)size, file);
    }
    free(buffer);
    mmsx_close(stream);
    return fclose(file) == 0 ? status : 1;
}
