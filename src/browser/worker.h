// Work off the GUI thread: a function runs on a pool thread and its result comes back
// to a function on the context object's thread. When the context is destroyed first,
// the result is dropped. Nothing ever waits for the work.
#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QPromise>
#include <QThreadPool>
#include <functional>
#include <memory>

namespace Worker {

template <typename Result>
void run(QObject* context, std::function<Result()> work, std::function<void(Result)> done,
         QThreadPool* pool = QThreadPool::globalInstance())
{
    auto promise = std::make_shared<QPromise<Result>>();
    auto* watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, done] {
        if (watcher->future().resultCount() > 0)
            done(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(promise->future());
    promise->start();
    pool->start([promise, work] {
        promise->addResult(work());
        promise->finish();
    });
}

} // namespace Worker
