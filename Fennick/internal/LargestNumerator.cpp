#include "Fennick/internal/FarthestPoint.h"

#if defined(__x86_64__)

#include <immintrin.h>

namespace Fennick::internal {

namespace {

// Four points at a time, in the scalar form's own order of operations: each
// lane rounds as the scalar form does. A maximum whose first operand is not a
// number answers the second, which passes such points over.
__attribute__((target("avx2"))) double largestNumeratorAvx2(const Line& line, const Point* points, std::size_t count)
{
    const __m256d dx = _mm256_set1_pd(line.dx);
    const __m256d dy = _mm256_set1_pd(line.dy);
    const __m256d productXY = _mm256_set1_pd(line.productXY);
    const __m256d productYX = _mm256_set1_pd(line.productYX);
    const __m256d sign = _mm256_set1_pd(-0.0);
    __m256d largest[2] = {_mm256_setzero_pd(), _mm256_setzero_pd()};
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        for (int half = 0; half < 2; ++half) {
            const double* place = &points[i + 4 * half].x;
            const __m256d low = _mm256_loadu_pd(place);
            const __m256d high = _mm256_loadu_pd(place + 4);
            const __m256d x = _mm256_unpacklo_pd(low, high);
            const __m256d y = _mm256_unpackhi_pd(low, high);
            __m256d numerator = _mm256_sub_pd(_mm256_mul_pd(dy, x), _mm256_mul_pd(dx, y));
            numerator = _mm256_sub_pd(_mm256_add_pd(numerator, productXY), productYX);
            largest[half] = _mm256_max_pd(_mm256_andnot_pd(sign, numerator), largest[half]);
        }
    }
    const __m256d four = _mm256_max_pd(largest[0], largest[1]);
    const __m128d two = _mm_max_pd(_mm256_castpd256_pd128(four), _mm256_extractf128_pd(four, 1));
    const double most = _mm_cvtsd_f64(_mm_max_sd(two, _mm_unpackhi_pd(two, two)));
    const double rest = largestNumeratorScalar(line, points + i, count - i);
    return rest > most ? rest : most;
}

}  // namespace

LargestNumerator largestNumerator()
{
    static const LargestNumerator chosen =
        __builtin_cpu_supports("avx2") ? largestNumeratorAvx2 : largestNumeratorScalar;
    return chosen;
}

}  // namespace Fennick::internal

#else

namespace Fennick::internal {

LargestNumerator largestNumerator()
{
    return largestNumeratorScalar;
}

}  // namespace Fennick::internal

#endif
