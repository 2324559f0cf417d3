// retriedWork.h - work on the files of a call, several at a time, of which one that finds no memory is tried again.
#pragma once

#include "cli/orderedWork.h"
#include "cli/streamName.h"

#include <QStringList>

#include <cstddef>
#include <utility>

namespace cli {

/// Works on files, and hands the results over in the order of the files, whatever the number of cores.
/// @tparam Result  has a flag `isOutOfMemory`
template<typename Result> class RetriedWork
{
public:
    using Work = typename OrderedWork<Result>::Work;

    /// @param paths  as the user gave them
    /// @param cores  files that are worked on at the same time; memory is taken for as many
    /// @param work   on a file by its place in `paths`; called in any thread, does not throw
    RetriedWork(QStringList paths, std::size_t cores, const Work& work)
        : m_paths(std::move(paths))
        , m_retry(work)
        , m_work(static_cast<std::size_t>(m_paths.size()), cores > 1 && m_paths.size() > 1 ? cores : 0, work)
    {}

    /// The result of the next file; to be called once for each. One that finds no memory while others are worked on
    /// beside it is tried once more by itself, so what fits into the memory does not depend on the number of cores.
    /// Standard input cannot be read again.
    [[nodiscard]] Result take()
    {
        Result result = m_work.take();
        const std::size_t index = m_taken++;
        if (!result.isOutOfMemory || isStandardInput(m_paths.at(static_cast<int>(index))))
            return result;
        m_work.stopThreads();
        return m_retry(index);
    }

private:
    QStringList m_paths;
    Work m_retry;
    OrderedWork<Result> m_work;
    std::size_t m_taken = 0;
};

} // namespace cli
