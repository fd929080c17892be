# Builds the demo image; don't run it as root.
FROM python:3.12-slim AS build
ARG VERSION=1.0
ENV APP_HOME=/app \
    PYTHONUNBUFFERED=1
WORKDIR ${APP_HOME}
COPY requirements.txt .
RUN apt-get update && apt-get install -y --no-install-recommends gcc \
    && pip install --no-cache-dir -r requirements.txt

FROM python:3.12-slim
COPY --from=build /usr/local /usr/local
COPY --chown=app:app . /app
USER app
EXPOSE 8080
HEALTHCHECK CMD ["python", "-c", "print('ok')"]
CMD ["python", "-m", "demo", "--port", "8080"]
